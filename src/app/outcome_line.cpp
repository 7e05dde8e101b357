#include "app/outcome_line.h"

#include <array>
#include <system_error>

#include "loops/facts.h"

namespace kzq {

namespace {

std::string reason(const Trouble& trouble) {
    std::string text(troubleName(trouble.kind));
    for (const auto& detail :
         {trouble.where, trouble.words,
          trouble.error != 0 ? std::generic_category().message(trouble.error) : std::string()}) {
        text += detail.empty() ? "" : ", " + detail;
    }
    return text;
}

}  // namespace

std::string flashLine(const FlashEnd& end) {
    constexpr std::array ends{"not sent", "sent", "confirmed", "in its loader", "unconfirmed"};
    return "firmware " + std::string(ends.at(static_cast<std::size_t>(end.how))) +
           (end.version.empty() ? "" : ", version " + end.version) + (end.why ? ": " + reason(*end.why) : "");
}

std::string outcomeLine(std::string_view done, const Outcome& outcome) {
    const std::string verb(done);
    auto line = std::to_string(outcome.done()) + " of " + std::to_string(outcome.wanted) + " loops " + verb;
    for (const auto& loop : outcome.slots) {
        if (loop.trouble) {
            line += "; " + loopName(loop.slot) + " not " + verb + ": " + reason(*loop.trouble);
        }
    }
    if (outcome.end) {
        line += "; ended: " + reason(*outcome.end);
    }
    if (outcome.doubt) {
        line += "; in doubt: " + loopName(outcome.doubt->slot);
    }
    return line;
}

}  // namespace kzq
