#include <algorithm>
#include <set>

#include "ctl/speech/exit_codes.h"
#include "operation.h"
#include "operations/sentences.h"

namespace kzq::test {

namespace {

std::optional<Bytes> in(const Memory& memory, SlotNumber slot) {
    const auto found = memory.find(slot);
    return found == memory.end() ? std::nullopt : std::optional(found->second);
}

std::string_view participle(Deed deed) {
    return deed == Deed::save ? "saved" : deed == Deed::write ? "written" : "erased";
}

bool says(const std::vector<std::string>& sentences, const std::string& words) {
    return std::ranges::any_of(
        sentences, [&](const auto& sentence) { return sentence.find(words) != std::string::npos; });
}

}  // namespace

std::optional<Status> LoopOperation::table(World& world) {
    before_ = world.held();
    auto status = world.work->status();
    if (!status) {
        outcome_ = {.wanted = aims_.size(), .end = status.error()};
        return std::nullopt;
    }
    if (deed_ != Deed::write) {  // only what the table has can be asked for
        std::erase_if(aims_, [&](const auto& aim) { return !status->loops.contains(aim.first); });
    }
    return std::move(*status);
}

std::vector<SlotNumber> LoopOperation::asked() const {
    return slotsOf(aims_);
}

void LoopOperation::check(World& world) {
    const auto held = world.held();
    for (const auto slot : allSlots()) {
        const auto now = in(held, slot);
        const auto aim = aims_.find(slot);
        const bool free = deed_ != Deed::save && aim != aims_.end() && (!now || now == aim->second);
        EXPECT_TRUE(now == in(before_, slot) || free) << loopName(slot) << " was touched";
    }
    std::set<SlotNumber> told;
    for (const auto& loop : outcome_.slots) {
        EXPECT_TRUE(told.insert(loop.slot).second) << loopName(loop.slot) << " is told twice";
        checkClaim(world, loop);
    }
    EXPECT_LE(outcome_.done(), reached(world)) << "it claims more than it did";
    EXPECT_TRUE(outcome_.end || outcome_.slots.size() == outcome_.wanted) << "loops are not accounted for";
    if (said().exit == 0) {
        EXPECT_EQ(reached(world), aims_.size());
    }
    checkWords(world);
}

void LoopOperation::checkClaim(World& world, const SlotOutcome& loop) {
    using Did = SlotOutcome::Did;
    const auto now = in(world.held(), loop.slot);
    if (loop.trouble) {
        return;
    }
    if (loop.did == Did::erased) {
        EXPECT_FALSE(now) << loopName(loop.slot) << " is not gone";
    } else if (loop.did == Did::written) {
        EXPECT_TRUE(now && now->size() == loop.frames.bytes()) << loopName(loop.slot) << " is not there";
    } else if (loop.did == Did::compared) {
        EXPECT_EQ(now, aims_.at(loop.slot)) << loopName(loop.slot);
    } else {
        EXPECT_EQ(loop.did, Did::sent);
    }
}

std::size_t LoopOperation::reached(World& world) const {
    const auto held = world.held();
    return static_cast<std::size_t>(
        std::ranges::count_if(aims_, [&](const auto& aim) { return in(held, aim.first) == aim.second; }));
}

Said LoopOperation::said() const {
    const auto told = kzq::told(deed_, outcome_, asked());
    const auto did = participle(deed_);
    Said said{.line = told.what + (told.why.empty() ? "" : ": " + told.why),
              .exit = static_cast<int>(ctl::exitCode(outcome_))};
    said.sentences = {said.line, told.detail, endSentence(did, outcome_), countSentence(did, outcome_)};
    for (const auto& loop : outcome_.slots) {
        if (loop.trouble) {
            said.sentences.push_back(slotSentence(did, loop));
        }
    }
    if (!window()) {  // the end, the first loop that failed, or how many there are
        said.line = !said.sentences[2].empty()  ? said.sentences[2]
                    : said.sentences.size() > 4 ? said.sentences[4]
                                                : said.sentences[3];
    }
    return said;
}

/// Pessimism is no lie; what is denied must not be so.
void LoopOperation::checkWords(World& world) const {
    if (world.port.mishap() == Mishap::zeros) {
        return;  // what the pedal says of itself has to be believed
    }
    const auto sentences = said().sentences;
    const auto all = testing::PrintToString(sentences);
    const auto held = world.held();
    const bool touched = deed_ == Deed::save ? reached(world) != 0 : held != before_;
    const bool doubt = says(sentences, "may now be empty") || says(sentences, "may have been erased") ||
                       says(sentences, "not checked");
    EXPECT_FALSE(touched && says(sentences, "othing was ") && !doubt) << all;
    for (const auto& [slot, aim] : aims_) {
        const bool done = deed_ != Deed::save && in(held, slot) == aim;
        const auto denial = loopName(slot) + " was not " + std::string(aim ? "written" : "erased");
        EXPECT_FALSE(done && says(sentences, denial) && !doubt) << all;
        EXPECT_FALSE(done && says(sentences, loopName(slot) + " does not match")) << all;
        const bool lost = aim && in(before_, slot) && !in(held, slot);
        EXPECT_FALSE(lost && !doubt && !says(sentences, "does not hold"))
            << loopName(slot) << " is lost: " << all;
    }
}

std::string LoopOperation::pedal(World& world) const {
    const auto held = world.held();
    if (deed_ == Deed::save || held == before_ || aims_.empty()) {
        return "untouched";
    }
    const bool empty = std::ranges::any_of(
        aims_, [&](const auto& aim) { return aim.second && in(before_, aim.first) && !in(held, aim.first); });
    const auto done = reached(world);
    return done == aims_.size() ? "as asked"
           : empty              ? "one slot empty, the others old or new"
                                : "some loops as asked";
}

}  // namespace kzq::test
