#include "loops/facts.h"
#include "operations/sentences.h"
#include "operations/told.h"

namespace kzq {

namespace {

using Did = SlotOutcome::Did;
using Kind = Trouble::Kind;

/// What has come up since the user was asked. `nothing`: "nothing was" or "nothing more was".
std::string changeSentence(const Trouble& trouble, const std::string& nothing) {
    const std::string inTheMeantime = " on the pedal in the meantime, ";
    return trouble.kind == Kind::noRoom
               ? "A loop was recorded" + inTheMeantime + "which leaves too little space, so " + nothing +
                     " written or erased. Erase loops, or choose shorter files."
               : trouble.where + " was " + trouble.words + inTheMeantime + "so " + nothing +
                     " written or erased.";
}

}  // namespace

std::string doubtSentence(const SlotOutcome& doubt) {
    switch (doubt.did) {
        case Did::erased:
            return "Some of the loops may have been erased.";
        case Did::sent:
            return loopName(doubt.slot) + " was sent; what the pedal holds of it was not checked.";
        default:
            return loopName(doubt.slot) + " was being written; the slot may now be empty.";
    }
}

std::string slotSentence(std::string_view done, const SlotOutcome& outcome) {
    const auto name = loopName(outcome.slot);
    const auto trouble = outcome.trouble.value_or(Trouble{Kind::noAnswer});
    if (outcome.did == Did::failed && !outcome.file.empty()) {
        return notSavedSentence(name, outcome.file, trouble);
    }
    if (trouble.kind == Kind::shortLoop) {
        return name + " was not written: it was sent, but the pedal does not hold all of it.";
    }
    if (trouble.kind == Kind::differs) {
        return name + " does not match what was written.";
    }
    const bool toPedal = done == "written" && outcome.did == Did::failed;
    const auto start = name + (outcome.did == Did::sent ? " was sent but could not be read back: "
                                                        : " was not " + std::string(done) + ": ");
    return start + reasonSentence(toPedal ? Deed::write : Deed::save, trouble) +
           (toPedal && trouble.kind == Kind::transferFailed ? " The slot may now be empty." : "");
}

std::string endSentence(std::string_view done, const Outcome& outcome) {
    if (!outcome.end) {
        return {};
    }
    const auto kind = outcome.end->kind;
    if (kind == Kind::changed || kind == Kind::noRoom) {
        return changeSentence(*outcome.end, outcome.begun ? "nothing more was" : "nothing was");
    }
    auto sentence = kind == Kind::diskFull ? spaceSentence(*outcome.end) : pedalSentence(*outcome.end);
    if (!outcome.begun && done != "saved") {
        sentence += " Nothing was changed.";
    }
    return sentence + (outcome.doubt ? " " + doubtSentence(*outcome.doubt) : "");
}

std::string countSentence(std::string_view done, const Outcome& outcome) {
    if (outcome.done() == 0 && outcome.doubt) {
        return {};
    }
    return (outcome.done() == outcome.wanted ? "" : std::to_string(outcome.done()) + " of ") +
           loopsText(outcome.wanted) + " " + std::string(done) + ".";
}

}  // namespace kzq
