#include "troubleshooting/hidden_names.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <functional>
#include <utility>

namespace kzq {

namespace {

/// The same on every computer.
constexpr std::array systemFolders{"/dev/", "/etc/", "/lib/", "/proc/", "/run/udev/", "/sys/", "/usr/"};

/// In them, and yet with what people name.
constexpr std::array foreignFolders{"/dev/shm", "/usr/local"};
/// Other than those of ASCII.
constexpr std::array<std::pair<std::string_view, std::string_view>, 4> quotes{
    {{"\u201e", "\u201c"}, {"\u201c", "\u201d"}, {"\u300c", "\u300d"}, {"\u00ab", "\u00bb"}}};
/// To folders that may be anywhere.
constexpr std::array ways{"/..", "/cwd", "/root"};

bool isPartOfWord(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' ||
           (static_cast<unsigned char>(c) & 0x80U) != 0;  // of a letter beyond ASCII
}

/// Whether it begins a sign of two bytes that is a letter; signs of three are quotes, or of languages that
/// put no blanks between words.
bool isLetter(char lead) {
    const auto byte = static_cast<unsigned char>(lead);
    return byte >= 0xC3 && byte <= 0xDF;
}

bool endsWord(std::string_view before) {
    const bool ascii = before.empty() || (static_cast<unsigned char>(before.back()) & 0x80U) == 0;
    return !before.empty() &&
           (ascii ? isPartOfWord(before.back()) : before.size() > 1 && isLetter(before[before.size() - 2]));
}

bool beginsWord(std::string_view after) {
    const bool ascii = after.empty() || (static_cast<unsigned char>(after.front()) & 0x80U) == 0;
    return !after.empty() && (ascii ? isPartOfWord(after.front()) : isLetter(after.front()));
}

/// Replaces `word` where no letter or digit stands beside it.
std::string replaced(std::string text, std::string_view word, const std::function<std::string()>& by) {
    for (auto at = text.find(word); !word.empty() && at != std::string::npos; at = text.find(word, at)) {
        const auto end = at + word.size();
        const std::string_view whole = text;
        const bool before = endsWord(whole.substr(0, at)) && isPartOfWord(word.front());
        const bool after = beginsWord(whole.substr(end)) && isPartOfWord(word.back());
        if (before || after) {
            ++at;
            continue;
        }
        const auto mark = by();
        text.replace(at, word.size(), mark);
        at += mark.size();
    }
    return text;
}

bool beginsPath(std::string_view text, std::size_t at) {
    return text[at] == '/' && !endsWord(text.substr(0, at)) && at + 1 < text.size() && text[at + 1] != ' ';
}

std::size_t endOfWord(std::string_view text, std::size_t at) {
    return std::min(text.find_first_of(" \t\n\"'", at), text.size());
}

std::size_t endOfQuoted(std::string_view text, std::size_t at, char quote) {
    constexpr std::string_view quoteInside = R"('\'')";  // for a shell
    auto end = text.find(quote, at);
    while (end != std::string_view::npos && text.substr(end).starts_with(quoteInside)) {
        end = text.find(quote, end + quoteInside.size());
    }
    return std::min(end, text.size());
}

std::size_t endOfPath(std::string_view text, std::size_t at, bool inWords) {
    if (at > 0 && (text[at - 1] == '"' || text[at - 1] == '\'')) {
        return endOfQuoted(text, at, text[at - 1]);
    }
    for (const auto& [opens, closes] : quotes) {
        if (text.substr(0, at).ends_with(opens)) {
            return std::min(text.find(closes, at), text.size());
        }
    }
    return inWords ? endOfWord(text, at) : std::min(text.find('\n', at), text.size());
}

bool isOfSystem(std::string_view path) {
    const auto isBelow = [path](const char* folder) { return path.starts_with(folder); };
    const auto leadsTo = [path](const char* way) { return path.find(way) != std::string_view::npos; };
    return std::ranges::any_of(systemFolders, isBelow) && std::ranges::none_of(foreignFolders, isBelow) &&
           std::ranges::none_of(ways, leadsTo);
}

bool isAddress(std::string_view before) {
    return before.ends_with("http:") || before.ends_with("https:");
}

}  // namespace

HiddenNames::HiddenNames(Owner owner, bool namesWanted, std::vector<std::string> known)
    : owner_(std::move(owner)), namesWanted_(namesWanted), known_(std::move(known)) {
    std::erase_if(known_, [](const std::string& name) { return std::ranges::none_of(name, isPartOfWord); });
    std::ranges::sort(known_, std::greater(), &std::string::size);
}

std::string HiddenNames::markOf(const std::string& name) {
    const auto last = std::filesystem::path(name).filename().string();
    return "<file " +
           std::to_string(
               numbers_.try_emplace(last.empty() ? name : last, numbers_.size() + 1).first->second) +
           ">";
}

std::string HiddenNames::withoutPaths(std::string_view text, bool inWords) {
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        if (!beginsPath(text, at)) {
            result += text[at++];
            continue;
        }
        const auto word = text.substr(at, endOfWord(text, at) - at);
        const bool stays = isAddress(text.substr(0, at)) || isOfSystem(word);
        const auto path = stays ? word : text.substr(at, endOfPath(text, at, inWords) - at);
        result += stays ? std::string(path) : markOf(std::string(path));
        at += path.size();
    }
    return result;
}

std::string HiddenNames::without(std::string_view text, bool inWords) {
    std::string result(text);
    if (!namesWanted_) {
        for (const auto& name : known_) {
            result = replaced(std::move(result), name, [&] { return markOf(name); });
        }
        result = withoutPaths(result, inWords);
    }
    if (owner_.home.has_relative_path()) {
        result = replaced(std::move(result), owner_.home.string(), [] { return "~"; });
    }
    return replaced(std::move(result), owner_.user, [] { return "<user>"; });
}

}  // namespace kzq
