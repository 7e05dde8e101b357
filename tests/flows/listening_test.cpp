#include "app/listening.h"

#include <QTest>

#include "audio/wave.h"
#include "flow_fixture.h"

namespace kzq::test {

namespace {

using simulator::WireEvent;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Ring = RowSound::Ring;

/// Slot 5 has a loop of 176 pieces, of which 64 have to be there before it is heard.
class ListeningTest : public FlowTest {
  protected:
    static constexpr std::uint32_t frames = 30'000;

    ListeningTest() { pedal.setLoop(4, loopOf(frames, 50)); }

    void begin() {
        launchConnected();
        pass(4s);  // the next poll is due in 4 s
        pedal.clearJournal();
    }
    void press(std::uint8_t slot) { delegate->playClickedForSlot(importRow(slot)); }
    void pressExport(std::uint8_t slot) { delegate->playClickedForSlot(exportRow(slot)); }
    Ring ring(std::uint8_t slot) { return importRow(slot).sound().ring; }
    /// Reads a loop that is heard once it is there.
    void hear(std::uint8_t slot) {
        press(slot);
        pass(1s);
        ASSERT_EQ(ring(slot), Ring::playing) << int{slot};
    }
    /// The wire since the journal was cleared, without the audio.
    std::vector<std::pair<int, int>> requests() const {
        std::vector<std::pair<int, int>> all;
        for (const auto& event : pedal.journal()) {
            if (event.kind == WireEvent::Kind::control) {
                all.emplace_back(event.code, event.value);
            } else if (event.kind == WireEvent::Kind::reset) {
                all.emplace_back(0, 0);
            }
        }
        return all;
    }
};

TEST_F(ListeningTest, ALoopIsHeardWhileItArrivesAndReadOnce) {
    begin();
    port.pace = 10ms;
    press(5);
    pass(300ms);
    EXPECT_EQ(line(), "Reading loop 5\u2026");
    EXPECT_EQ(ring(5), Ring::arriving);
    EXPECT_FALSE(shieldUp());
    EXPECT_GT(importRow(5).sound().peaks->known, 50U) << "a picture while it arrives";
    EXPECT_FALSE(output.plays());
    pass(450ms);
    EXPECT_EQ(ring(5), Ring::playing);
    EXPECT_EQ(line(), "Playing Loop 5, 0:00");
    EXPECT_EQ(link(), "Stop");
    delegate->parts().listening.fetch({5_slot}, [](auto, auto) {}, {});
    delegate->parts().listening.giveUp();
    output.take(5000);
    pass(2s);
    output.take(frames);
    const auto audio = pedal.memory()[4]->audio;
    EXPECT_EQ(output.heard, asHeard(audio, 0, frames + 5000));
    pass(50ms);
    EXPECT_NEAR(importRow(5).sound().position, 5000.0 / frames, 1e-4);
    EXPECT_EQ(importRow(5).sound().played, 113ms);
    press(5);
    EXPECT_EQ(ring(5), Ring::play);
    EXPECT_EQ(line(), "7306 \u00b7 4 loops \u00b7 firmware 1.05");
    press(5);
    EXPECT_EQ(ring(5), Ring::playing) << "in the press itself";
    EXPECT_THAT(sent(0xE1), ElementsAre(4));
    const auto copy = delegate->parts().listening.copyOf(5_slot);
    ASSERT_TRUE(copy);
    EXPECT_EQ(contents(*copy), wave(audio, 2));
    window->statusLine().link().click();
    EXPECT_FALSE(output.plays());
}

TEST_F(ListeningTest, OneReadAfterTheOtherAndTheLastPressIsHeard) {
    begin();
    hear(3);
    port.pace = 10ms;
    press(5);
    press(20);
    press(1);
    pass(500ms);
    EXPECT_EQ(ring(3), Ring::playing) << "until the other one is there";
    EXPECT_EQ(ring(20), Ring::play) << "it is only read";
    press(1);  // gives up what has not begun
    press(1);
    pass(2s);
    EXPECT_THAT(sent(0xE1), ElementsAre(2, 4, 19, 0));
    EXPECT_EQ(ring(1), Ring::playing);
    EXPECT_EQ(line(), "Playing Loop 1, 0:00");
    delegate->parts().listening.forget(5_slot);
    press(5);
    pass(300ms);
    press(5);
    pass(5s);
    EXPECT_FALSE(delegate->parts().listening.copyOf(5_slot)) << "nobody else wanted it";
    EXPECT_EQ(ring(1), Ring::playing);
    EXPECT_THAT(sent(0xE1), SizeIs(5));
    EXPECT_THAT(sent(0xEF), SizeIs(1));
    press(5);
    pass(300ms);
    press(5);
    press(5);  // before the read has ended
    pass(5s);
    EXPECT_EQ(ring(5), Ring::playing);
}

TEST_F(ListeningTest, ACopyCountsUntilThePedalMayHoldSomethingElse) {
    begin();
    const auto poll = [this] { pass(6s); };
    const auto write = [&] { stage(3, 1999), window->exportButton()->click(), becomesIdle(), poll(); };
    const std::vector<std::pair<std::string, std::function<void()>>> causes = {
        {"nothing", poll},
        {"played", [&] { pedal.setBusy(true), poll(), pedal.setBusy(false), poll(); }},
        {"its sequence byte moved", [&] { pedal.setSequence(9), poll(); }},
        {"the computer slept", [&] { asleep += 1h; }},
        {"unplugged", [&] { pedal.unplug(), pass(1s), plugIn(), pass(1s); }},
        {"another length", [&] { pedal.setLoop(2, loopOf(1999, 1)), poll(); }},
        {"written", write},
        {"written, and the table is as it was", write}};
    for (const auto& [cause, happens] : causes) {
        hear(3);
        press(3);
        pedal.clearJournal();
        happens();
        EXPECT_EQ(delegate->parts().listening.copyOf(3_slot).has_value(), cause == "nothing") << cause;
        hear(3);
        press(3);
        EXPECT_THAT(sent(0xE1), SizeIs(cause == "nothing" ? 0 : 1)) << cause;
    }
}

TEST_F(ListeningTest, AnOperationEndsTheReadAndGoesOnInItsOwnOrder) {
    begin();
    select({1, 3});
    window->importButton()->click();
    ASSERT_TRUE(becomesIdle());
    const auto alone = requests();
    for (const int round : {1, 2}) {
        pass(5s);
        std::vector<Trouble::Kind> ends;
        port.pace = 10ms;
        delegate->parts().listening.fetch({5_slot, 20_slot},
                                          [&](auto, auto copy) { ends.push_back(copy.error().kind); }, {});
        press(3);
        pass(300ms);
        pedal.clearJournal();
        select({1, 3});
        window->importButton()->click();
        ASSERT_TRUE(becomesIdle());
        auto with = requests();
        ASSERT_GE(with.size(), 2U) << round;
        EXPECT_EQ(std::vector(with.begin(), with.begin() + 2),
                  (std::vector<std::pair<int, int>>{{0, 0}, {0xEF, 1}}));
        with.erase(with.begin(), with.begin() + 2);
        EXPECT_EQ(with, alone) << round;
        EXPECT_THAT(ends, ElementsAre(Trouble::Kind::cancelled, Trouble::Kind::cancelled));
        EXPECT_EQ(ring(3), Ring::play);
        EXPECT_EQ(line(), "2 loops saved in imports");
    }
    port.pace = 10ms;
    press(5);
    pass(1s);
    dialogs.take();
    select({5});
    window->eraseButton()->click();
    ASSERT_TRUE(becomesIdle());
    EXPECT_THAT(dialogs.take(), ElementsAre(testing::HasSubstr("cannot be restored")));
    EXPECT_FALSE(output.plays());
    EXPECT_FALSE(pedal.memory()[4]);
    hear(3);
    pass(1s);
    EXPECT_TRUE(delegate->parts().listening.copyOf(3_slot)) << "the next one is read as ever";
}

TEST_F(ListeningTest, AnOperationSaysThatItWaitsForAReadWhichDoesNotEnd) {
    begin();
    port.pace = 30s;  // no reset ends that
    press(5);
    pass(1s);
    port.pace = 0s;
    select({1});
    window->importButton()->click();
    pass(600ms);
    EXPECT_EQ(line(), "Waiting for the read of loop 5 to stop\u2026");
    EXPECT_EQ(link(), "");
    pass(12s);
    EXPECT_EQ(line(), "The pedal has stopped answering: unplug it");
    pedal.unplug();
    pass(20s);
    using testing::HasSubstr;
    EXPECT_THAT(line(), testing::Not(testing::AnyOf(HasSubstr("Waiting"), HasSubstr("unplug it"))));
}

TEST_F(ListeningTest, WhatIsPressedDuringTheQuestionIsNotReadAfterTheErase) {
    begin();
    dialogs.answer = [this] { return press(20), alertFirstButton; };
    select({3});
    window->eraseButton()->click();
    ASSERT_TRUE(becomesIdle());
    pass(2s);
    EXPECT_THAT(sent(0xE1), IsEmpty());
    EXPECT_EQ(ring(20), Ring::play);
    dialogs.answer = [] { return alertSecondButton; };
    port.pace = 10ms;
    press(5);
    press(20);
    pass(300ms);
    select({1});
    window->eraseButton()->click();
    pass(3s);
    EXPECT_THAT(sent(0xE1), ElementsAre(4)) << "nor after a question that was answered with no";
}

TEST_F(ListeningTest, ALoopThatChangesOnThePedalIsHeardNoMoreAndSaidOnce) {
    begin();
    hear(5);
    pedal.setBusy(true);
    pass(6s);
    EXPECT_TRUE(output.plays()) << "it may have changed; what was read goes on";
    pedal.setBusy(false);
    pedal.setLoop(4, loopOf(frames - 1, 51));
    pass(6s);
    EXPECT_FALSE(output.plays());
    plan("refuse@E1");
    std::vector<Trouble::Kind> ends;
    const auto fetch = [&] {
        delegate->parts().listening.fetch({5_slot},
                                          [&](auto, auto copy) { ends.push_back(copy.error().kind); }, {});
    };
    fetch();
    pass(1s);
    EXPECT_THAT(ends, ElementsAre(Trouble::Kind::refused));
    EXPECT_EQ(line(), "7306 \u00b7 4 loops \u00b7 firmware 1.05") << "who fetches it says so";
    plan("refuse@E1");
    press(5);
    pass(1s);
    const auto told = line();
    EXPECT_EQ(told, "Loop 5 could not be read: the pedal refused to send it");
    port.pace = 10ms;
    fetch();
    pass(200ms);
    pedal.unplug();
    pass(1s);
    EXPECT_THAT(ends, ElementsAre(Trouble::Kind::refused, Trouble::Kind::unplugged));
    EXPECT_EQ(line(), told);
}

TEST_F(ListeningTest, AReadWaitsForAnOperationThatLeavesTheWindowFree) {
    begin();
    verifyAfterExport();
    stage(5, frames);
    window->exportButton()->click();
    port.pace = 10ms;
    ASSERT_TRUE(becomesIdle());
    EXPECT_EQ(line(), "Verifying loop 5\u2026");
    press(3);
    pass(1s);
    EXPECT_EQ(ring(3), Ring::arriving);
    EXPECT_EQ(line(), "Verifying loop 5\u2026");
    pass(3s);
    EXPECT_EQ(ring(3), Ring::playing);
}

TEST_F(ListeningTest, APedalThatLeavesTakesItsSoundWithIt) {
    begin();
    port.pace = 10ms;
    press(5);
    pass(1s);
    ASSERT_TRUE(output.plays());
    press(3);
    pedal.unplug();
    pass(2s);
    EXPECT_FALSE(output.plays());
    EXPECT_EQ(line(), "Loop 5 could not be read: the pedal was unplugged");
    EXPECT_EQ(importRow(5).sound().peaks, nullptr);
    plugIn();
    hear(1);
    EXPECT_THAT(sent(0xE1), ElementsAre(4, 0));
}

TEST_F(ListeningTest, AStagedFileIsComparedWithWhatItWouldReplace) {
    begin();
    stage(3, 1500);
    pass(1s);
    pressExport(3);
    EXPECT_EQ(line(), "Playing song 3, 0:00");
    const auto& shown = exportRow(3).sound();
    EXPECT_TRUE(shown.compares);
    EXPECT_FALSE(shown.other);
    EXPECT_EQ(shown.otherLength, Frames{2000});
    output.take(700);
    delegate->compareClickedForSlot(exportRow(3));
    pass(1s);
    EXPECT_TRUE(shown.other);
    EXPECT_NE(shown.otherPeaks, nullptr);
    EXPECT_EQ(line(), "Playing Loop 3, 0:00");
    output.take(2000);
    const auto heard = asHeard(pedal.memory()[2]->audio, 700, 2000);
    EXPECT_TRUE(std::equal(heard.begin(), heard.end(), output.heard.begin() + 1400));
    EXPECT_EQ(output.starts, 1);
    delegate->compareClickedForSlot(exportRow(3));
    EXPECT_FALSE(shown.other);
    exportRow(3).doNotExport();
    EXPECT_FALSE(output.plays()) << "what is not there any more is not heard";
    pressExport(3);
    EXPECT_EQ(line(), "Playing Loop 3, 0:00");
    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_FALSE(output.plays());

    stage(5, frames);
    pass(1s);
    pressExport(5);
    output.take(20'000);
    port.pace = 10ms;
    delegate->compareClickedForSlot(exportRow(5));
    pass(1s);
    EXPECT_FALSE(exportRow(5).sound().other) << "until the loop has come so far";
    pass(2s);
    EXPECT_TRUE(exportRow(5).sound().other);
}

TEST_F(ListeningTest, WithoutASoundDeviceNothingIsRead) {
    begin();
    output.setTrouble("No sound device was found.");
    pass(1s);
    EXPECT_EQ(importRow(5).sound().trouble, "No sound device was found.");
    press(5);
    pass(1s);
    EXPECT_THAT(sent(0xE1), IsEmpty());
    std::vector<double> moved;
    std::vector<unsigned> came;
    delegate->parts().listening.fetch(
        {5_slot, 1_slot, 5_slot},
        [&](SlotNumber slot, auto copy) {
            came.push_back(slot.number());
            EXPECT_TRUE(copy);
        },
        [&](double share) { moved.push_back(share); });
    pass(1s);
    EXPECT_THAT(came, ElementsAre(5, 1, 5));
    EXPECT_EQ(moved.back(), 1);
    EXPECT_TRUE(std::ranges::is_sorted(moved));
    EXPECT_THAT(sent(0xE1), ElementsAre(4, 0));
}

}  // namespace

}  // namespace kzq::test
