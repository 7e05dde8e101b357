#include "troubleshooting/doctor.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>

#include "words/words.h"

namespace kzq {

namespace {

using Kind = Trouble::Kind;

constexpr auto betweenLooks = std::chrono::milliseconds(500);
constexpr int looks = 10;

constexpr std::string_view sudo = "sudo ";
constexpr std::string_view installing = "install -m ";

/// The single commands of a line for a shell. What is in quotes stays whole; "\'" outside them is no quote.
std::vector<std::string> commandsOf(const std::string& line) {
    std::vector<std::string> commands(1);
    bool quoted = false;
    for (std::size_t at = 0; at < line.size(); ++at) {
        if (!quoted && line[at] == '\\' && at + 1 < line.size()) {
            commands.back() += line.substr(at++, 2);
            continue;
        }
        quoted = quoted != (line[at] == '\'');
        if (!quoted && (line.compare(at, 4, " && ") == 0)) {
            commands.emplace_back();
            at += 3;
        } else {
            commands.back() += line[at];
        }
    }
    return commands;
}

/// As the shell takes it.
std::string withoutQuotes(const std::string& word) {
    std::string plain;
    bool quoted = false;
    for (std::size_t at = 0; at < word.size(); ++at) {
        if (word[at] == '\'') {
            quoted = !quoted;
            continue;
        }
        at += !quoted && word[at] == '\\' && at + 1 < word.size() ? 1U : 0U;
        plain += word[at];
    }
    return plain;
}

/// For a shell that is root's already.
std::string withoutSudo(std::string command) {
    if (command.starts_with(sudo)) {
        command.erase(0, sudo.size());
    }
    const std::string piped = "| " + std::string(sudo);
    if (const auto pipe = command.rfind(piped); pipe != std::string::npos) {
        command.erase(pipe + 2, sudo.size());
    }
    return command;
}

/// "install -m 644 FROM TO": from where, and to where; FROM may be quoted.
struct Installed {
    std::string from;
    std::string to;
};
std::optional<Installed> installedBy(const std::string& command) {
    constexpr std::size_t mode = 4;  // digits and a blank
    if (!command.starts_with(installing) || command.size() < installing.size() + mode) {
        return std::nullopt;
    }
    const auto rest = command.substr(installing.size() + mode);
    const auto last = rest.rfind(' ');
    if (last == std::string::npos) {
        return std::nullopt;
    }
    return Installed{withoutQuotes(rest.substr(0, last)), rest.substr(last + 1)};
}

/// "… | tee FILE"
std::string writtenBy(const std::string& command) {
    constexpr std::string_view writing = "| tee ";
    const auto at = command.rfind(writing);
    return at == std::string::npos ? std::string() : command.substr(at + writing.size());
}

constexpr std::string_view settingUp = "/kzq7306-setup install";

std::vector<std::string> rootCommandsOf(const Trouble& trouble) {
    auto commands = commandsOf(trouble.remedy);
    std::ranges::transform(commands, commands.begin(), withoutSudo);
    return commands;
}

}  // namespace

std::vector<std::string> doctorLines(const Finding& finding) {
    std::vector<std::string> lines{(finding.present ? "!!  " : "ok  ") + finding.sentence};
    if (finding.present && !finding.remedy.empty()) {
        lines.push_back("      " + finding.remedy);
    }
    return lines;
}

bool endsBySetUp(Kind kind) {
    constexpr std::array kinds{Kind::ruleMissing, Kind::ruleNotInForce, Kind::roadNotInstalled,
                               Kind::roadNotInForce, Kind::roadBlocked};
    return std::ranges::find(kinds, kind) != kinds.end();
}

std::optional<Trouble> missingSetUp(const std::vector<Finding>& findings) {
    const auto found = std::ranges::find_if(
        findings, [](const Finding& finding) { return finding.present && endsBySetUp(finding.kind); });
    return found == findings.end() ? std::nullopt : std::optional(asTrouble(*found));
}

std::string setUpCommands(const Trouble& trouble) {
    std::string line;
    for (const auto& command : rootCommandsOf(trouble)) {
        const auto file = installedBy(command);
        if (file && !std::filesystem::path(file->from).is_absolute()) {
            return {};  // in the folder of the user's shell, wherever that is
        }
        line += (line.empty() ? "" : " && ") + command;
    }
    return line;
}

std::vector<std::string> setUpFiles(const Trouble& trouble) {
    std::vector<std::string> lines;
    const auto add = [&lines](const std::filesystem::path& file) {
        lines.push_back(words("%1 goes into %2.", file.filename().string(), file.parent_path().string()));
    };
    for (const auto& command : rootCommandsOf(trouble)) {
        if (const auto file = installedBy(command)) {
            add(std::filesystem::path(file->to) / std::filesystem::path(file->from).filename());
        } else if (const auto written = writtenBy(command); !written.empty()) {
            add(written);
        } else if (command.ends_with(settingUp)) {
            add("/etc/udev/rules.d/70-kzq7306.rules");
            add("/usr/lib/udev/kzq7306-usbtmc");
        }
    }
    return lines;
}

Result<std::vector<Finding>> setUpSystem(const SetUp& order, const Trouble& trouble) {
    if (const auto done = order.asRoot(setUpCommands(trouble)); !done) {
        return done.error();
    }
    auto findings = order.examine();
    for (int look = 1; look < looks && missingSetUp(findings); ++look) {
        order.executor.sleep(betweenLooks);
        findings = order.examine();
    }
    return findings;
}

}  // namespace kzq
