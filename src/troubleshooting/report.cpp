#include "troubleshooting/report.h"

#include <utility>

#include "troubleshooting/doctor.h"
#include "troubleshooting/log_tail.h"

namespace kzq {

namespace {

constexpr auto indent = "    ";

/// A text that spans lines would look like several entries.
std::string inOneLine(std::string text) {
    for (char& c : text) {
        c = c >= '\0' && c < ' ' ? ' ' : c;
    }
    return text;
}

}  // namespace

std::string reportText(const TroubleReport& report, bool namesWanted, std::vector<std::string> names) {
    HiddenNames hidden(report.owner, namesWanted, std::move(names));
    std::string text = "7306 Loop Manager, report for troubleshooting\n";
    text += namesWanted ? "Names of files are included.\n" : "Names of files are left out.\n";
    const auto heading = [&text](const std::string& title) { text += "\n" + title + "\n"; };
    const auto add = [&text](const std::string& line) { text += indent + inOneLine(line) + "\n"; };

    heading("Versions");
    for (const auto& line : report.versions) {
        add(hidden.inSentence(line));
    }
    heading("What the doctor says");
    for (const auto& finding : report.findings) {
        Finding told = finding;
        told.sentence = hidden.inCommand(finding.sentence);
        told.remedy = hidden.inCommand(finding.remedy);
        for (const auto& line : doctorLines(told)) {
            add(line);
        }
    }
    heading("Last results, newest first");
    for (const auto& result : report.results) {
        add(timeOfDay(result.time) + (result.failure ? " failed: " : " ") +
            hidden.inSentence(result.sentence));
        if (!result.detail.empty()) {
            add(std::string(9, ' ') + hidden.inSentence(result.detail));
        }
    }
    if (report.results.empty()) {
        add("none");
    }
    heading("Log");
    for (const auto& line : report.log) {
        add(hidden.inSentence(line));
    }
    if (report.log.empty()) {
        add("empty");
    }
    return text;
}

}  // namespace kzq
