#include "loops/facts.h"
#include "operations/sentences.h"
#include "operations/told.h"
#include "words/words.h"

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

/// `reason` is the rest of the sentence.
std::string notDoneSentence(std::string_view done, const std::string& name, const std::string& reason) {
    const char* text = done == "saved"     ? english("%1 was not saved: %2")
                       : done == "written" ? english("%1 was not written: %2")
                       : done == "erased"  ? english("%1 was not erased: %2")
                                           : english("%1 was not compared: %2");
    return words(text, name, reason);
}

}  // namespace

std::string doubtSentence(const SlotOutcome& doubt) {
    switch (doubt.did) {
        case Did::erased:
            return words("Some of the loops may have been erased.");
        case Did::sent:
            return words("%1 was sent; what the pedal holds of it was not checked.", loopName(doubt.slot));
        default:
            return words("%1 was being written; the slot may now be empty.", loopName(doubt.slot));
    }
}

std::string slotSentence(std::string_view done, const SlotOutcome& outcome) {
    const auto name = loopName(outcome.slot);
    const auto trouble = outcome.trouble.value_or(Trouble{Kind::noAnswer});
    if (outcome.did == Did::failed && !outcome.file.empty()) {
        return notSavedSentence(name, outcome.file, trouble);
    }
    if (trouble.kind == Kind::shortLoop) {
        return words("%1 was not written: it was sent, but the pedal does not hold all of it.", name);
    }
    if (trouble.kind == Kind::differs) {
        return words("%1 does not match what was written.", name);
    }
    const bool toPedal = done == "written" && outcome.did == Did::failed;
    const auto reason = reasonSentence(toPedal ? Deed::write : Deed::save, trouble);
    return inTurn(outcome.did == Did::sent ? words("%1 was sent but could not be read back: %2", name, reason)
                                           : notDoneSentence(done, name, reason),
                  toPedal && trouble.kind == Kind::transferFailed ? words("The slot may now be empty.") : "");
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
