#include "device/libusb/udev_rules.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <functional>
#include <set>
#include <string_view>
#include <system_error>

namespace kzq {

namespace {

namespace fs = std::filesystem;

constexpr auto rulesName = "70-kzq7306.rules";
constexpr auto helperName = "kzq7306-usbtmc";

/// The rules in `file`; a rule may span several lines.
std::vector<std::string> rulesIn(const fs::path& file) {
    std::vector<std::string> rules;
    std::ifstream stream(file);
    bool goesOn = false;
    for (std::string line; std::getline(stream, line);) {
        const bool next = line.ends_with('\\');
        if (next) {
            line.pop_back();
        }
        if (goesOn) {
            rules.back() += line;
        } else {
            rules.push_back(line);
        }
        goesOn = next;
    }
    std::erase_if(rules, [](const std::string& rule) {
        const auto first = rule.find_first_not_of(" \t");
        return first != std::string::npos && rule[first] == '#';
    });
    return rules;
}

bool has(const std::string& rule, std::string_view word) {
    return rule.find(word) != std::string::npos;
}

bool anyRule(const std::vector<fs::path>& folders, const std::function<bool(const std::string&)>& wanted) {
    std::set<fs::path> seen;
    for (const auto& folder : folders) {
        std::error_code error;
        for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
             entry.increment(error)) {
            const auto& file = entry->path();
            // A file overrides those of the same name in folders of lower priority.
            if (file.extension() == ".rules" && seen.insert(file.filename()).second &&
                std::ranges::any_of(rulesIn(file), wanted)) {
                return true;
            }
        }
    }
    return false;
}

bool ofPedal(const std::string& rule) {
    return has(rule, "308a") && has(rule, "0104");
}

/// The folder with the rules, with a trailing slash, or nothing.
std::string shippedFolder(const fs::path& program) {
    std::error_code error;
    fs::path folder = fs::canonical(program, error);
    while (!error && folder.has_relative_path()) {
        folder = folder.parent_path();
        for (const auto* const place : {"packaging", "share/kzq7306"}) {
            if (fs::exists(folder / place / rulesName, error)) {
                return (folder / place).string() + "/";
            }
        }
        error.clear();
    }
    return {};
}

std::string quoted(const std::string& word) {
    const bool plain = std::ranges::all_of(word, [](unsigned char c) {
        return std::isalnum(c) != 0 ||
               std::string_view("/._-").find(static_cast<char>(c)) != std::string::npos;
    });
    if (plain) {
        return word;
    }
    std::string text = "'";
    for (const char c : word) {
        text += c == '\'' ? std::string(R"('\'')") : std::string(1, c);
    }
    return text + "'";
}

}  // namespace

bool hasAccessRule(const std::vector<fs::path>& folders) {
    return anyRule(folders, [](const std::string& rule) {
        return ofPedal(rule) && !has(rule, "usbmisc") && (has(rule, "uaccess") || has(rule, "MODE"));
    });
}

bool hasHelperRule(const std::vector<fs::path>& folders) {
    return anyRule(folders, [](const std::string& rule) { return ofPedal(rule) && has(rule, helperName); });
}

bool hasRoadRule(const std::vector<fs::path>& folders) {
    return anyRule(folders, [](const std::string& rule) { return ofPedal(rule) && has(rule, "usbmisc"); });
}

fs::path installedSetUp() {
    return KZQ_SETUP;
}

std::string installingCommand(const fs::path& program) {
    const std::string folder = shippedFolder(program);
    return "sudo install -m 644 " + quoted(folder + rulesName) +
           " /etc/udev/rules.d/ && sudo install -m 755 " + quoted(folder + helperName) + " /usr/lib/udev/";
}

std::string removingCommand(const std::vector<fs::path>& ruleFolders,
                            const std::vector<fs::path>& helperFolders) {
    const auto& rules = ruleFolders.front();
    const auto& helpers = helperFolders.front();
    std::vector<fs::path> files{rules / rulesName, rules / "71-kzq7306-remote.rules"};
    std::error_code ignored;
    if (!fs::exists(helpers / "rules.d" / rulesName, ignored)) {
        files.push_back(helpers / helperName);
    }
    std::erase_if(files, [&ignored](const fs::path& file) { return !fs::exists(file, ignored); });
    std::string words;
    for (const auto& file : files) {
        words += " " + quoted(file);
    }
    return words.empty() ? words : "sudo rm -f" + words + " && sudo udevadm control --reload";
}

}  // namespace kzq
