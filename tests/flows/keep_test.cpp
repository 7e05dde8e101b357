#include <malloc.h>

#include <QMenu>

#include "app/bring_back_flow.h"
#include "audio/wave.h"
#include "flow_fixture.h"
#include "ui/alert_button.h"
#include "ui/check_box.h"
#include "ui/panels/bring_back.h"

namespace kzq::test {

namespace {

using simulator::WireEvent;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class KeepTest : public FlowTest {
  protected:
    KeepTest() { EXPECT_TRUE(kept.turn(true)); }

    StatusLink& link() { return window->statusLine().link(); }
    /// Over the cover.
    StatusLink* stop() { return shieldUp() ? window->shield()->findChild<StatusLink*>() : nullptr; }
    /// "E1 2": the loops that were read, erased and written, in order.
    std::vector<std::string> moves() const {
        std::vector<std::string> all;
        for (const auto& event : pedal.journal()) {
            for (const auto* const name : {"E1", "ED", "E2"}) {
                if (event.kind == WireEvent::Kind::control && event.code == std::stoi(name, nullptr, 16)) {
                    all.push_back(std::string(name) + " " + std::to_string(event.value));
                }
            }
        }
        return all;
    }
    BringBack& openPanel() {
        delegate->parts().bringBack.open();
        executor.settle();
        return *delegate->parts().bringBack.panel();
    }
};

TEST_F(KeepTest, WhatIsErasedIsReadFirstUnderTheCoverAndComesBackAsItWas) {
    launchConnected();
    select({3, 20});
    port.pace = 100ms;
    pedal.clearJournal();
    window->eraseButton()->click();
    EXPECT_THAT(dialogs.take(), ElementsAre(HasSubstr("cannot be restored")));
    pass(250ms);
    EXPECT_TRUE(shieldUp());
    EXPECT_THAT(line(), testing::MatchesRegex("Keeping a copy of Loop 3\u2026 [1-9][0-9] %"));
    ASSERT_TRUE(becomesIdle());
    EXPECT_THAT(moves(), ElementsAre("E1 2", "E1 19", "ED 2", "ED 19"));
    EXPECT_EQ(line(), "2 loops erased");
    ASSERT_EQ(kept.list().size(), 2U);
    EXPECT_EQ(contents(kept.list().front().file), wave(loopOf(2000, 20).audio, 2).value());

    auto& panel = openPanel();
    ASSERT_EQ(panel.rows().size(), 2U);
    EXPECT_TRUE(panel.rows()[0]->on() && panel.rows()[1]->on()) << "an undo takes Return";
    panel.rows()[1]->setOn(false);
    panel.acceptButton().click();
    pass(1s);
    ASSERT_TRUE(becomesIdle());
    EXPECT_THAT(dialogs.take(), IsEmpty());
    EXPECT_EQ(pedal.memory()[2]->audio, loopOf(2000, 20).audio);
    EXPECT_FALSE(panel.isVisible() || pedal.memory()[19]);
}

TEST_F(KeepTest, WhatIsReplacedIsReadAfterTheQuestionAndNothingElse) {
    launchConnected();
    stage(3, 10);
    stage(4, 10);
    dialogs.answer = [this] {
        EXPECT_FALSE(shieldUp());
        EXPECT_THAT(moves(), IsEmpty());
        return alertFirstButton;
    };
    pedal.clearJournal();
    window->exportButton()->click();
    pass(100ms);
    ASSERT_TRUE(becomesIdle());
    EXPECT_THAT(moves(), ElementsAre("E1 2", "E2 2", "E2 3"));
    ASSERT_EQ(kept.list().size(), 1U);
    EXPECT_EQ(kept.list().front().fate, KeptCopy::Fate::replaced);

    stage(6, 10);  // and what comes back does not send it along
    auto& panel = openPanel();
    panel.acceptButton().click();
    pass(11s);
    EXPECT_EQ(line(), "Loop 3 is staged");
    EXPECT_EQ(delegate->selectedExportSlots().size(), 2U);
}

TEST_F(KeepTest, AWindowThatGoesBeforeTheFirstCopyIsAskedNothingMore) {
    ::mallopt(M_PERTURB, 0xA5);  // what is let go is written over
    launchConnected();
    select({3});
    plan("silence@E8:2");
    window->eraseButton()->click();
    pass(100ms);
    EXPECT_TRUE(shieldUp());
    delegate.reset();
    pass(1min);
    ::mallopt(M_PERTURB, 0);
}

TEST_F(KeepTest, ALoopThatIsRecordedWhileCopiesAreMadeIsNeitherErasedNorReplaced) {
    launchConnected();
    select({3});
    port.pace = 100ms;
    window->eraseButton()->click();
    pass(250ms);
    pedal.setLoop(2, loopOf(500, 40));
    ASSERT_TRUE(becomesIdle());
    EXPECT_THAT(sent(0xED), IsEmpty());

    stage(1, 10);
    stage(3, 10);
    window->exportButton()->click();
    pass(850ms);  // the first loop has its copy
    pedal.setLoop(0, loopOf(500, 50));
    KZQ7306::looper()->refresh();  // as a poll between two loops: the rows show it at once
    ASSERT_TRUE(becomesIdle());
    EXPECT_THAT(moves(), ElementsAre("E1 2", "E1 0", "E1 2"));
    EXPECT_EQ(line(), "Nothing was written: Loop 1 was changed on the pedal meanwhile");
    EXPECT_EQ(pedal.memory()[0], loopOf(500, 50));
}

TEST_F(KeepTest, WhatMayHaveBeenPlayedMeanwhileIsCopiedOnceMore) {
    launchConnected();
    port.pace = 100ms;  // a copy takes 1.2 s
    const auto nothing = [] {};
    const auto sequence = [this](std::uint8_t now) { return [this, now] { pedal.setSequence(now); }; };
    const auto newTake = [this] { pedal.setSequence(14), pedal.setLoop(2, loopOf(2000, 99)); };
    const auto atNextTable = [this] {  // which is the erase's own
        port.tamper = [this](auto code, auto) { code == 0xEC ? pedal.setSequence(12) : void(); };
    };
    const auto noMore = [this] { port.tamper = {}; };
    struct {
        std::string what;
        std::function<void()> first, second;
        std::vector<std::string> moves;
    } const cases[] = {{"nothing", nothing, nothing, {"E1 2", "ED 2"}},
                       {"a sequence byte that moved", sequence(9), nothing, {"E1 2", "E1 2", "ED 2"}},
                       {"a computer that slept", [this] { asleep += 1h; }, nothing, {"E1 2", "E1 2", "ED 2"}},
                       {"a sleep, then the byte", [this] { asleep += 1h; }, sequence(11), {"E1 2", "E1 2"}},
                       {"a byte that moves by itself", sequence(10), sequence(11), {"E1 2", "E1 2", "ED 2"}},
                       {"after its copy", atNextTable, noMore, {"E1 2"}},
                       {"another take, and once more", newTake, sequence(15), {"E1 2", "E1 2"}}};
    for (const auto& [what, first, second, expected] : cases) {
        pedal.setLoop(2, loopOf(2000, 20));
        pass(6s);
        delegate->deselectAll();
        select({3});
        pedal.clearJournal();
        window->eraseButton()->click();
        pass(600ms);
        first();
        pass(1200ms);
        second();
        ASSERT_TRUE(becomesIdle());
        EXPECT_EQ(moves(), expected) << what;
    }
    EXPECT_EQ(line(), "Nothing was erased: the pedal was in use while its loops were copied");
    EXPECT_EQ(link().text(), "Erase without a copy");
}

TEST_F(KeepTest, AnEraseThatWasRefusedHasOnlyCopied) {
    launchConnected();
    plan("refuse@ED");
    select({3});
    window->eraseButton()->click();
    ASSERT_TRUE(becomesIdle());
    ASSERT_EQ(kept.list().size(), 1U);
    EXPECT_EQ(kept.list()[0].fate, KeptCopy::Fate::copied);
    EXPECT_FALSE(openPanel().rows().at(0)->on());
}

TEST_F(KeepTest, ACopyIsHeardUntilSomethingElseIs) {
    launchConnected();
    select({1, 3});
    window->eraseButton()->click();
    ASSERT_TRUE(becomesIdle());
    auto& panel = openPanel();
    auto& first = *panel.rows().at(0);
    auto& second = *panel.rows().at(1);
    const auto hear = [this](BringBackRow& row) {
        row.ring().click();
        executor.settle();
        EXPECT_TRUE(row.sound().on && output.plays());
    };
    hear(first);
    EXPECT_EQ(line(), "Playing Loop 1, 0:00");
    output.take(700);
    pass(50ms);
    EXPECT_EQ(output.heard, asHeard(loopOf(1000, 10).audio, 0, 700));
    EXPECT_NEAR(first.sound().position, 0.7, 2e-3);
    hear(second);
    EXPECT_FALSE(first.sound().on);
    second.ring().click();
    EXPECT_FALSE(output.plays());
    hear(first);
    delegate->playClickedForSlot(importRow(20));
    pass(1s);
    EXPECT_EQ(line(), "Playing Loop 20, 0:00");
    EXPECT_FALSE(first.sound().on);
    hear(second);
    EXPECT_EQ(importRow(20).sound().ring, RowSound::Ring::play);
    output.setTrouble("No sound device was found.");
    executor.settle();
    EXPECT_FALSE(output.plays() || second.sound().on);
    EXPECT_EQ(first.ring().toolTip(), "No sound device was found.");
    output.setTrouble("");
    executor.settle();
    hear(second);
    panel.decline().click();
    EXPECT_FALSE(output.plays());
    std::filesystem::remove(kept.list()[0].file);
    panel.show();
    first.ring().click();
    executor.settle();
    EXPECT_EQ(line(), "The copy of Loop 1 could not be played: its file could not be read");
}

TEST_F(KeepTest, WithoutACopyNothingIsLostUnlessTheUserSaysSo) {
    launchConnected();
    freeSpace = 100;
    select({3});
    window->eraseButton()->click();
    ASSERT_TRUE(becomesIdle());
    EXPECT_EQ(line(), "Nothing was erased: no copy was kept, too little space on the disk");
    EXPECT_THAT(delegate->selectedImportSlots(), ElementsAre(3_slot));
    select({1});
    freeSpace = 1'000'000;
    dialogs.take();
    plan("refuse@E1");
    ASSERT_EQ(link().text(), "Erase without a copy");
    link().click();
    ASSERT_TRUE(becomesIdle());
    EXPECT_THAT(dialogs.take(), ElementsAre(HasSubstr("cannot be restored")));
    EXPECT_THAT(sent(0xED), ElementsAre(2)) << "only what was asked about then";

    stage(1, 10);
    window->exportButton()->click();
    pass(100ms);
    ASSERT_TRUE(becomesIdle());
    EXPECT_EQ(line(), "Nothing was written: loop 1 was not copied, the pedal refused to send it");
    EXPECT_THAT(sent(0xE2), IsEmpty());
    ASSERT_EQ(link().text(), "Replace without a copy");
    link().click();
    pass(100ms);
    ASSERT_TRUE(becomesIdle());
    EXPECT_THAT(sent(0xE2), ElementsAre(0));
    EXPECT_THAT(kept.list(), IsEmpty());
}

TEST_F(KeepTest, AStopOrAPulledCableEndsItWithoutErasing) {
    launchConnected();
    port.pace = 100ms;
    select({3});
    window->eraseButton()->click();
    pass(250ms);
    ASSERT_NE(stop(), nullptr);
    stop()->click();
    pass(0s);
    ASSERT_TRUE(becomesIdle());
    EXPECT_EQ(line(), "Nothing was erased: stopped");
    EXPECT_THAT(delegate->selectedImportSlots(), ElementsAre(3_slot));
    plan("unplug@in:2");
    window->eraseButton()->click();
    pass(1s);
    ASSERT_TRUE(becomesIdle());
    EXPECT_EQ(line(), "Nothing was erased: no copy was kept, the pedal was unplugged");
    EXPECT_THAT(sent(0xED), IsEmpty());
    EXPECT_THAT(kept.list(), IsEmpty());
}

TEST_F(KeepTest, TheMenuTurnsItOffAndSaysWhatItDoes) {
    launchConnected();
    auto& entry = menuEntry("&Keep Copies");
    EXPECT_TRUE(entry.isChecked());
    auto* const menu = qobject_cast<QMenu*>(entry.parent());
    ASSERT_NE(menu, nullptr);
    Q_EMIT menu->hovered(&entry);
    EXPECT_EQ(line(), "Each loop is read before it is erased or replaced.");
    Q_EMIT menu->aboutToHide();
    EXPECT_THAT(line(), HasSubstr("7306"));
    entry.trigger();
    EXPECT_FALSE(kept.on());
    select({3});
    pedal.clearJournal();
    window->eraseButton()->click();
    ASSERT_TRUE(becomesIdle());
    EXPECT_THAT(moves(), ElementsAre("ED 2"));
    auto& panel = openPanel();
    EXPECT_EQ(panel.notice(), "Keep Copies is off: what you erase or replace now is gone.");
    panel.keepCopies().click();
    EXPECT_TRUE(kept.on());
}

TEST(FateOfACopy, SaysTheDayAsPeopleDo) {
    const QDateTime now({2026, 11, 5}, {15, 0});
    using Fate = KeptCopy::Fate;
    const auto fate = [&now](const std::string& stamp, Fate what = Fate::erased) {
        return fateOf({.file = {}, .slot = 5_slot, .length = {}, .stamp = stamp, .fate = what}, now);
    };
    EXPECT_EQ(fate("2026-11-05 14-02-31"), "erased today 14:02");
    EXPECT_EQ(fate("2026-11-05 14-02-31", Fate::copied), "copied today 14:02");
    EXPECT_EQ(fate("2026-11-04 21-15-00-02", Fate::replaced), "replaced yesterday 21:15");
    EXPECT_EQ(fate("2026-10-30 20-51-00"), "erased Fri 20:51");
    EXPECT_EQ(fate("2026-10-29 09-20-00"), "erased 29 Oct 09:20");
    EXPECT_EQ(fate("2025-11-05 09-20-00"), "erased 5 Nov 2025 09:20");
}

}  // namespace

}  // namespace kzq::test
