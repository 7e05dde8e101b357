// Feeds hostile command lines, a word a line, to the parsers of the programs without a window. Each ends in
// options that make sense or in a sentence, and slots are what a naive reading says.

#include <algorithm>
#include <optional>
#include <regex>
#include <set>

#include "ctl/speech/options.h"
#include "ctl/speech/slot_list.h"
#include "fuzz_check.h"
#include "pedal/pedal_options.h"

namespace {

using Words = std::vector<std::string>;
using namespace kzq::ctl;

std::optional<std::set<unsigned>> slotsNaively(const Words& words) {
    static const std::regex pattern("0*([0-9]{1,2})(-0*([0-9]{1,2}))?");
    std::set<unsigned> slots;
    for (const auto& word : words) {
        std::smatch parts;
        const bool fits = std::regex_match(word, parts, pattern);
        const auto first = fits ? std::stoul(parts[1]) : 0;
        const auto last = fits && parts[3].matched ? std::stoul(parts[3]) : first;
        if (first == 0 || first > last || last > kzq::loopSlots) {
            return std::nullopt;
        }
        for (auto slot = first; slot <= last; ++slot) {
            slots.insert(static_cast<unsigned>(slot));
        }
    }
    return slots;
}

void checkSlots(const Words& words) {
    const auto expected = slotsNaively(words);
    const auto slots = slotsFromWords(words);
    require(slots.has_value() == expected.has_value() &&
                (!slots || std::ranges::equal(*slots, *expected, {}, &kzq::SlotNumber::number)),
            "the slots are what the words say");
}

void checkSlot(const std::string& word) {
    const auto one = word.find('-') == std::string::npos ? slotsNaively({word}) : std::nullopt;
    const auto parsed = parseOptions({"export", "x", "--slot=" + word});
    require(one ? parsed.options && parsed.options->slot->number() == *one->begin() : !parsed.options,
            "a number is the same slot in every command");
}

void checkTool(const Words& words) {
    const auto parsed = parseOptions(words);
    if (!parsed.options) {
        const bool sentence =
            parsed.text.find('\n') == std::string::npos && parsed.text.ends_with("See \"kzq7306ctl help\".");
        require(parsed.code == (sentence ? ExitCode::usage : ExitCode::ok),
                "help, or what is wrong in one sentence");
        return;
    }
    const auto& options = *parsed.options;
    require(options.wait.count() >= 0 && options.patience.count() >= 0, "no time is negative");
    require(options.faults.empty() || options.simulate, "only a simulated pedal has faults");
    const bool either = options.subcommand == Subcommand::import || options.subcommand == Subcommand::erase;
    require(!either || options.all == options.slots.empty(), "either slots or all of them");
    for (const auto& file : options.files) {
        require(
            std::ranges::any_of(words, [&](const auto& word) { return file == word || file == "./" + word; }),
            "a file is named as it was");
    }
}

void checkPedal(Words words) {
    std::vector<char*> arguments(1, words.emplace(words.begin(), "kzq7306-pedal")->data());
    std::transform(words.begin() + 1, words.end(), std::back_inserter(arguments),
                   [](auto& word) { return word.data(); });
    const auto parsed = kzq::pedal::parseOptions(static_cast<int>(arguments.size()), arguments.data());
    require(parsed.run || !parsed.text.empty(), "it runs or says why not");
    for (const auto& [address, channel] : parsed.options.channels) {
        require(address < kzq::loopSlots && channel != 0, "a channel of a slot");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t size) {
    const auto words = linesOf(input, size);
    checkSlots(words);
    checkSlot(words.empty() ? "" : words.front());
    checkTool(words);
    checkPedal(words);
    return 0;
}
