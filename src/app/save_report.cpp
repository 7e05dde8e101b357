#include "app/save_report.h"

#include <utility>

#include "app/app_parts.h"
#include "app/show_folder.h"
#include "platform/plain_file.h"
#include "platform/replace_file.h"
#include "troubleshooting/report.h"
#include "words/words.h"

namespace kzq {

namespace {

constexpr auto reportJob = "report";

Alert question() {
    return {.headline = words("Save a report for troubleshooting?"),
            .finePrint =
                words("A text file that you can read and send: the versions of the program and of this "
                      "computer's system, what keeps the pedal from being used, the last results and the "
                      "log. There is no audio in it, and neither your name nor that of your home folder."),
            .buttons = {{words("Save\u2026")}, {words("Cancel")}},
            .option = words("Include file names")};
}

Result<void> save(const decltype(AppEnvironment::writeFile)& writeFile, const std::filesystem::path& file,
                  const std::string& text) {
    const ByteView bytes{reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
    if (isPlainFile(file)) {  // and the dialog asked
        return replaceFile(file.parent_path(), file.filename().string(), bytes);
    }
    return writeFile(file.parent_path(), file.stem().string(), file.extension().string(), bytes)
        .map([](const auto& /*place*/) {});
}

/// What has been told so far, for the report.
struct ToldSoFar {
    std::vector<TroubleReport::Result> results;
    std::vector<std::string> names;
};

ToldSoFar toldSoFar(const Announcements& announcements) {
    ToldSoFar told{.results = {}, .names = {announcements.names().begin(), announcements.names().end()}};
    for (const auto& each : announcements.list()) {
        told.results.push_back({each.time, each.sentence(), each.detail, each.failure});
    }
    return told;
}

Remedy afterwards(AppParts& parts, const std::filesystem::path& file, bool saved) {
    if (!saved) {
        return {words("Try again"), [&parts] { return (saveReport(parts), true); }};
    }
    return showing(parts.environment, file.parent_path());
}

void write(AppParts& parts, const std::filesystem::path& file, bool namesWanted) {
    const auto work = parts.teller.newWork();
    parts.teller.working(work, words("Saving the report\u2026"));
    const auto& environment = parts.environment;
    environment.executor.background(
        Priority::standard,
        [&parts, post = parts.teller.poster(), work, file, namesWanted, make = environment.report,
         writeFile = environment.writeFile, told = toldSoFar(parts.teller.announcements())]() mutable {
            auto report = make();
            report.results = std::move(told.results);
            const auto saved = save(writeFile, file, reportText(report, namesWanted, std::move(told.names)));
            post([&parts, work, file, saved] {
                parts.teller.tell(toldReport(file, saved), reportJob,
                                  afterwards(parts, file, saved.has_value()));
                parts.teller.idle(work);
            });
        });
}

}  // namespace

void saveReport(AppParts& parts) {
    auto& dialogs = parts.environment.dialogs;
    const auto post = parts.teller.poster();
    bool namesWanted = false;
    if (dialogs.run(question(), namesWanted) != alertFirstButton) {
        return;
    }
    const auto chosen =
        dialogs.chooseNewFile(words("Save Report"), reportName, {words("Text files"), {"txt"}});
    if (chosen.answer == panelOk && !chosen.path.empty()) {
        // the window may have gone under the dialogs
        post([&parts, file = chosen.path, namesWanted] { write(parts, file, namesWanted); });
    }
}

}  // namespace kzq
