#include "operations/sentences.h"

#include <gmock/gmock.h>

#include <cctype>
#include <cerrno>

#include "operations/flash.h"
#include "operations/told.h"

namespace kzq::test {
namespace {

using Kind = Trouble::Kind;

/// Why this is no text that a user should read; empty if it is one.
std::string flawOf(const std::string& text, bool complete) {
    if (text.empty()) {
        return complete ? "it is empty" : "";
    }
    for (const auto* const slip : {"  ", " .", "..", ":.", ",.", "()", "\"\"", " ,", "::", "%."}) {
        if (text.find(slip) != std::string::npos) {
            return "it contains '" + std::string(slip) + "'";
        }
    }
    const bool command =
        text.find("Run: ") != std::string::npos || text.find("install it: ") != std::string::npos;
    if (complete && text.back() != '.' && !command) {
        return "it has no full stop";
    }
    const bool opens = std::isupper(static_cast<unsigned char>(text.front())) != 0 || text.front() == '"' ||
                       text.front() == '/' || text.starts_with("--");
    return complete && !opens                ? "it has no beginning"
           : !complete && text.back() == '.' ? "it has a full stop"
                                             : "";
}

/// Those whose words are sentences.
bool isOfPedal(Kind kind) {
    return kind <= Kind::roadBlocked;
}

/// Each kind of trouble, with all that may be known of one.
std::vector<Trouble> everyTrouble() {
    std::vector<Trouble> all;
    for (auto kind = Kind{}; kind <= Kind::nobodyToAsk;
         kind = static_cast<Kind>(static_cast<int>(kind) + 1)) {
        const bool ofPedal = isOfPedal(kind);
        for (const int error : {ENOSPC, EFBIG, ENOENT, EROFS, EIO, ENOTDIR, EEXIST}) {
            all.push_back({.kind = kind,
                           .where = "/music/Loop 3.wav",
                           .error = error,
                           .words = ofPedal ? "It is so." : "12"});
        }
        all.push_back({.kind = kind,
                       .where = "/music",
                       .words = ofPedal ? "It is so." : "Its words",
                       .remedy = "sudo modprobe usbtmc"});
    }
    return all;
}

void expectText(const std::string& text, const Trouble& trouble, bool complete = true) {
    EXPECT_EQ(flawOf(text, complete), "") << text << "\n"
                                          << troubleName(trouble.kind) << " " << trouble.error;
}

void expectTold(const Told& told, const Trouble& trouble) {
    EXPECT_FALSE(told.what.empty());
    expectText(told.what, trouble, false);
    expectText(told.why, trouble, false);
    if (!told.detail.empty()) {
        expectText(told.detail, trouble);
    }
}

TEST(Sentences, EveryTroubleIsPutIntoWholeSentences) {
    for (const auto& trouble : everyTrouble()) {
        const bool ofFile = !isOfPedal(trouble.kind);
        if (!ofFile) {
            expectText(pedalSentence(trouble), trouble);
        }
        for (auto* const sentence :
             {fileSentence, audioSentence, firmwareSentence, simulationSentence, recordingSentence,
              recordingEndSentence, badRecordingSentence, folderSentence, spaceSentence, slotsSentence}) {
            if (ofFile) {
                expectText(sentence(trouble), trouble);
            }
        }
        if (ofFile) {
            expectText(conversionSentence(trouble), trouble);
            expectText(slotSentence("saved", {.slot = 3_slot, .trouble = trouble, .file = "/music"}),
                       trouble);
        }
        if (trouble.words != "12") {  // else the pedal's
            expectText(backupSentence(trouble), trouble);
        }
        for (const auto* const done : {"saved", "written", "erased", "compared"}) {
            expectText(slotSentence(done, {.slot = 3_slot, .trouble = trouble}), trouble);
        }
        expectText(comparedSentence({.slot = 3_slot, .trouble = trouble}), trouble);
    }
}

TEST(Sentences, TheStatusLineHasAPartForEachOfThem) {
    for (const auto& trouble : everyTrouble()) {
        for (const auto deed : {Deed::save, Deed::write, Deed::erase}) {
            const Outcome outcome{
                .wanted = 2, .slots = {{.slot = 3_slot, .trouble = trouble}}, .begun = true};
            expectTold(told(deed, outcome, {3_slot, 4_slot}), trouble);
            expectTold(told(deed, outcome, {3_slot}), trouble);
        }
        if (!isOfPedal(trouble.kind)) {
            expectTold(toldUnusable("riff.wav", trouble), trouble);
            expectTold(toldReport("/home/me/report.txt", trouble), trouble);
            expectTold(toldRecordingEnd(trouble), trouble);
            expectTold(toldFirmwareList("12:00", "1.06", trouble), trouble);
        }
        using End = FlashEnd::How;
        for (const auto how : {End::notSent, End::sent, End::confirmed, End::inLoader, End::unconfirmed}) {
            for (const auto phase : {FlashPhase::asking, FlashPhase::left, FlashPhase::sending}) {
                const FlashEnd end{
                    .how = how, .phase = phase, .version = "1.05", .why = trouble, .percent = 40};
                expectTold(told(end), trouble);
                expectTold(told(end, end, "1.06"), trouble);
                if (trouble.words != "12") {
                    expectText(flashSentence(end, "install it again"), trouble);
                }
            }
        }
    }
}

}  // namespace
}  // namespace kzq::test
