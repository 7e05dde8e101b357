#include "device/recorder/recording.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <map>
#include <set>
#include <utility>

namespace kzq::recorder {

namespace {

using Words = std::vector<std::string_view>;
using Kind = RecordedEvent::Kind;

constexpr int hexadecimal = 16;
/// Far below what a clock can count.
constexpr std::chrono::microseconds longest = std::chrono::hours(24 * 366);

Words wordsOf(std::string_view line) {
    Words words;
    while (true) {
        const auto space = line.find(' ');
        words.push_back(line.substr(0, space));
        if (space == std::string_view::npos) {
            return words;
        }
        line.remove_prefix(space + 1);
    }
}

template <typename Number>
bool parse(std::string_view text, Number& number, int base = 10) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
    return error == std::errc() && end == text.data() + text.size();
}

/// Of a bulk transfer: 32 bits, as in a capture.
bool parseLength(std::string_view text, std::size_t& length) {
    return parse(text, length) && length <= std::numeric_limits<std::uint32_t>::max();
}

bool parseHex(std::string_view text, std::vector<std::uint8_t>& bytes) {
    if (text == "-") {
        return true;
    }
    if (text.empty() || text.size() % 2 != 0) {
        return false;
    }
    bytes.resize(text.size() / 2);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (!parse(text.substr(2 * i, 2), bytes[i], hexadecimal)) {
            return false;
        }
    }
    return true;
}

/// The existing calls, with the forms of their arguments: d and i a number (i may be negative), s one of 16
/// bits, l a length, 2 and 4 that many hexadecimal digits, w "arrived" or "left", p outgoing data.
constexpr std::array<std::pair<std::string_view, std::string_view>, 13> calls{{{"initialize", ""},
                                                                               {"register", "w44id"},
                                                                               {"open", "d"},
                                                                               {"find", "44"},
                                                                               {"driver", "di"},
                                                                               {"detach", "di"},
                                                                               {"claim", "di"},
                                                                               {"release", "di"},
                                                                               {"control", "d2244s"},
                                                                               {"in", "d2l"},
                                                                               {"out", "d2lp"},
                                                                               {"reset", "d"},
                                                                               {"close", "d"}}};

bool hasForm(std::string_view word, char form) {
    constexpr std::string_view sumMark = "fnv:";
    constexpr std::size_t sumWidth = 16;
    std::uint64_t number = 0;
    std::int32_t small = 0;
    std::uint16_t shortLength = 0;
    std::size_t length = 0;
    std::vector<std::uint8_t> bytes;
    switch (form) {
        case 's':
            return parse(word, shortLength);
        case 'l':
            return parseLength(word, length);
        case '2':
        case '4':
            return word.size() == static_cast<std::size_t>(form - '0') && parse(word, number, hexadecimal);
        case 'i':
            return parse(word, small);
        case 'w':
            return word == "arrived" || word == "left";
        case 'p':
            return word.starts_with(sumMark) ? word.size() == sumMark.size() + sumWidth &&
                                                   parse(word.substr(sumMark.size()), number, hexadecimal)
                                             : parseHex(word, bytes);
        default:
            return parse(word, number);
    }
}

/// Whether data in full is as long as the word before it says.
bool isOfLength(std::string_view length, std::string_view data) {
    std::size_t said = 0;
    std::vector<std::uint8_t> bytes;
    return !parseHex(data, bytes) || (parse(length, said) && said == bytes.size());
}

bool isCall(const Words& words) {
    const auto* const call = std::ranges::find(calls, words.front(), &decltype(calls)::value_type::first);
    if (call == calls.end() || words.size() != call->second.size() + 1) {
        return false;
    }
    for (std::size_t i = 0; i < call->second.size(); ++i) {
        if (!hasForm(words[i + 1], call->second[i])) {
            return false;
        }
    }
    return words.front() != "out" || isOfLength(words[3], words[4]);
}

/// Reads line after line; each must be consistent with those before it.
class Reader {
  public:
    /// Why the line is invalid; nullptr if it is valid.
    const char* take(std::size_t number, const std::string& line) {
        RecordedEvent event{.line = number};
        const Words words = wordsOf(line);
        std::int64_t time = 0;
        if (words.size() < 3 || !parse(words[0], time) || time < 0) {
            return "is neither an event nor a comment";
        }
        if (time > longest.count()) {
            return "has an impossibly late time";
        }
        event.time = std::chrono::microseconds(time);
        if (event.time < last_) {
            return "is earlier than the line before it";
        }
        last_ = event.time;
        const bool ofCall = parse(words[1], event.number);
        const char* const fault = !ofCall           ? takeHotplug(event, words)
                                  : words[2] == "=" ? takeResult(event, words)
                                                    : takeCall(event, line, words);
        if (fault == nullptr) {
            recording_.events.push_back(std::move(event));
        }
        return fault;
    }
    Recording recording() { return std::move(recording_); }

  private:
    const char* takeCall(RecordedEvent& event, const std::string& line, const Words& words) {
        const Words call(words.begin() + 2, words.end());
        if (!isCall(call)) {
            return "is not a valid call";
        }
        if (event.number != ++calls_) {
            return "does not have the next call number";
        }
        event.words = line.substr(static_cast<std::size_t>(call.front().data() - line.data()));
        open_[event.number] = event.words;
        if (call.front() == "register") {
            registrations_.insert(event.number);
        }
        return nullptr;
    }

    const char* takeResult(RecordedEvent& event, const Words& words) {
        const auto call = open_.find(event.number);
        if (call == open_.end()) {
            return "ends a call that was not running";
        }
        event.kind = Kind::result;
        const bool good = words.size() > 3 && parse(words[3], event.result) &&
                          takeData(event, wordsOf(call->second), Words(words.begin() + 4, words.end()));
        open_.erase(call);
        return good ? nullptr : "is not a valid result for its call";
    }

    /// What follows the result.
    static bool takeData(RecordedEvent& event, const Words& call, const Words& data) {
        const std::string_view verb = call.front();
        std::size_t asked = 0;
        if (verb == "control") {
            return data.size() == 1 && parse(call.back(), asked) && parseHex(data[0], event.bytes) &&
                   event.bytes.size() == asked;
        }
        if (verb == "in") {
            return data.size() == 2 && parse(call.back(), asked) && parseLength(data[0], event.transferred) &&
                   parseHex(data[1], event.bytes) && event.bytes.size() == std::min(asked, event.transferred);
        }
        if (verb == "out") {
            return data.size() == 1 && parseLength(data[0], event.transferred);
        }
        return data.empty();
    }

    const char* takeHotplug(RecordedEvent& event, const Words& words) {
        constexpr std::array<std::pair<std::string_view, Kind>, 3> kinds{
            {{"there", Kind::there}, {"arrived", Kind::arrived}, {"left", Kind::left}}};
        const auto* const kind = std::ranges::find(kinds, words[1], &decltype(kinds)::value_type::first);
        if (kind == kinds.end() || words.size() != 4 || !parse(words[2], event.device) ||
            !parse(words[3], event.number)) {
            return "is neither an event nor a comment";
        }
        event.kind = kind->second;
        // Nobody would ever receive it, and a replay would wait for that.
        const bool heard = registrations_.contains(event.number) &&
                           (event.kind != Kind::there || open_.contains(event.number));
        return heard ? nullptr : "belongs to no registration";
    }

    Recording recording_;
    std::chrono::microseconds last_{};
    unsigned calls_ = 0;
    std::map<unsigned, std::string> open_;  ///< running calls, by number
    std::set<unsigned> registrations_;      ///< by the number of their call
};

/// A recording may have been sent by mail or kept by a program that ends lines in its own way.
bool readLine(std::istream& file, std::string& line) {
    if (!std::getline(file, line)) {
        return false;
    }
    if (line.ends_with('\r')) {
        line.pop_back();
    }
    return true;
}

Trouble refusal(std::size_t line, const std::string& fault) {
    return {Trouble::Kind::badRecording, "line " + std::to_string(line), 0, fault};
}

}  // namespace

Result<Recording> readRecording(std::istream& file) {
    std::string line;
    if (!readLine(file, line) || line != recordingHeader) {
        return refusal(1, "is not \"" + std::string(recordingHeader) + "\"");
    }
    Reader reader;
    std::size_t number = 2;
    for (; readLine(file, line); ++number) {
        if (file.eof()) {
            return refusal(number, "is cut off");
        }
        const char* const fault = line.starts_with('#') ? nullptr : reader.take(number, line);
        if (fault != nullptr) {
            return refusal(number, fault);
        }
    }
    if (file.bad()) {
        return refusal(number, "cannot be read");
    }
    return reader.recording();
}

}  // namespace kzq::recorder
