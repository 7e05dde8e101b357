#include "flow_fixture.h"
#include "updates/windows/firmware_updater.h"

namespace kzq::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// What every flow ends in, and from where it can be started again.
class BadMoments : public FlowTest {
  protected:
    std::ptrdiff_t resets() const {
        return std::ranges::count(pedal.journal(), simulator::WireEvent::Kind::reset,
                                  &simulator::WireEvent::kind);
    }
};

TEST_F(BadMoments, AWindowThatHasGoneIsToldNothing) {
    auto life = std::make_shared<int>();
    const FlowPlace place{executor, {.life = life}, {}};
    bool isTold = false;
    place.post([&] { isTold = true; });
    life.reset();
    executor.settle();
    EXPECT_FALSE(isTold);
}

TEST_F(BadMoments, ASecondPressStartsNothingAndLeavesNoShield) {
    launchConnected();
    const auto import = [this] { window->importButton()->click(); };
    const auto twice = [&](Executor::Duration between) {
        select({1});
        pedal.clearJournal();
        import();
        pass(between);
        import();
        delegate->eraseButtonClicked();
        delegate->exportButtonClicked();
        EXPECT_TRUE(becomesIdle());
        EXPECT_THAT(dialogs.take(), ElementsAre("folder Save"));
        EXPECT_EQ(sent(0xE1).size(), 1U);
        EXPECT_THAT(sent(0xED), IsEmpty());
    };
    twice(0s);
    twice(50ms);
    twice(99ms);
    // While it runs the pedal is busy, also before the link has begun.
    select({1});
    import();
    pass(99ms);
    executor.advanceUntil([this] { return shieldUp(); }, 1s);
    delegate->exportButtonClicked();
    EXPECT_THAT(dialogs.take(), ElementsAre("folder Save", isBusy));
    EXPECT_TRUE(becomesIdle());
    // From inside of a question.
    stage(3, 10);
    dialogs.answer = [&] {
        delegate->exportButtonClicked();
        delegate->eraseButtonClicked();
        executor.advance(1s);
        return alertFirstButton;
    };
    window->exportButton()->click();
    EXPECT_TRUE(becomesIdle());
    EXPECT_EQ(dialogs.take().size(), 1U);
}

TEST_F(BadMoments, APedalThatLeavesUnderAQuestionEndsIdle) {
    launchConnected();
    const auto leave = [this] {
        pedal.unplug();
        executor.advance(1s);
    };
    const auto swap = [this, leave] {
        leave();
        pedal.plugIn();
        executor.advance(1s);
    };
    for (const auto& happening : std::initializer_list<std::function<void()>>{leave, swap}) {
        dialogs.take();
        dialogs.folder = [&] { return (happening(), Dialogs::Chosen{panelOk, folder}); };
        dialogs.answer = [&] { return (happening(), alertFirstButton); };
        select({1});
        window->importButton()->click();
        EXPECT_TRUE(becomesIdle());
        EXPECT_EQ(dialogs.take().size(), 1U);
        pedal.unplug();
        executor.settle();
        plugIn();
        pedal.clearJournal();
        stage(3, 10);
        window->exportButton()->click();
        EXPECT_TRUE(becomesIdle());
        EXPECT_EQ(dialogs.take().size(), 1U);
        pedal.unplug();
        executor.settle();
        plugIn();
        select({3});
        dialogs.answer = [&, asked = false]() mutable {
            return std::exchange(asked, true) ? alertFirstButton : (happening(), alertFirstButton);
        };
        window->eraseButton()->click();
        EXPECT_TRUE(becomesIdle());
        EXPECT_THAT(sent(0xE2), IsEmpty());
        EXPECT_THAT(sent(0xED), IsEmpty());
        pedal.unplug();
        executor.settle();
        plugIn();
    }
    EXPECT_THAT(files(), IsEmpty());
    EXPECT_EQ(pedal.memory()[2], loopOf(2000, 20));
}

TEST_F(BadMoments, ALoopRecordedUnderTheQuestionIsNotOverwritten) {
    launchConnected();
    stage(3, 10);
    stage(4, 10);
    dialogs.answer = [this] {
        pedal.setLoop(3, loopOf(50, 1));
        executor.advance(6s);
        return alertFirstButton;
    };
    window->exportButton()->click();
    EXPECT_TRUE(becomesIdle());
    EXPECT_THAT(sent(0xE2), IsEmpty());
    EXPECT_EQ(line(), "Nothing was written: what is staged changed meanwhile");
    EXPECT_FALSE(window->statusLine().link().isVisibleTo(window.get())) << "all is still staged";
    EXPECT_EQ(delegate->selectedExportSlots().size(), 2U);
}

/// Before any poll has seen it.
TEST_F(BadMoments, NothingIsOverwrittenOrErasedThatTheUserWasNotAskedAbout) {
    launchConnected();
    stage(4, 10);
    const auto recorded = loopOf(50, 1);
    pedal.setLoop(3, recorded);
    const auto press = [this] {
        dialogs.take();
        window->exportButton()->click();
        EXPECT_TRUE(becomesIdle());
        return dialogs.take();
    };
    EXPECT_THAT(press(), IsEmpty());
    EXPECT_EQ(line(), "Nothing was written: Loop 4 was recorded on the pedal meanwhile");
    EXPECT_TRUE(exportRow(4).occupied() && !window->warning()->isHidden());
    dialogs.answer = [&] { return (pedal.setLoop(3, loopOf(60, 1)), alertFirstButton); };
    EXPECT_EQ(press().size(), 1U);
    EXPECT_EQ(line(), "Nothing was written: Loop 4 was changed on the pedal meanwhile");
    dialogs.answer = [&] { return (pedal.setLoop(3, std::nullopt), alertFirstButton); };
    EXPECT_EQ(press().size(), 1U);
    EXPECT_EQ(line(), "Nothing was written: Loop 4 was erased on the pedal meanwhile");
    EXPECT_THAT(sent(0xE2), IsEmpty());
    EXPECT_EQ(workingCopies(), 1);
    EXPECT_THAT(press(), IsEmpty());
    EXPECT_THAT(sent(0xE2), ElementsAre(3));

    select({1, 3});
    type(3, "typed");
    dialogs.answer = [&] { return (pedal.setLoop(2, recorded), alertFirstButton); };
    port.tamper = [this](std::uint8_t request, auto /*reply*/) {
        if (request == 0xE8) {
            KZQ7306::looper()->refresh();  // its news come while nothing is selected
        }
        executor.sleep(request == 0xEB ? 10ms : 0ms);
    };
    window->eraseButton()->click();
    EXPECT_TRUE(becomesIdle());
    port.tamper = {};
    EXPECT_EQ(importRow(3).name(), "typed");
    EXPECT_TRUE(importRow(1).selected() && window->eraseButton()->isEnabled());
    EXPECT_EQ(line(), "Nothing was erased: Loop 3 was changed on the pedal meanwhile");
    EXPECT_THAT(sent(0xED), IsEmpty());
    EXPECT_EQ(importRow(3).samples(), 50U);
    dialogs.answer = [] { return alertFirstButton; };
    EXPECT_THAT(delegate->selectedImportSlots(), ElementsAre(1_slot, 3_slot));
    window->eraseButton()->click();
    EXPECT_TRUE(becomesIdle());
    EXPECT_FALSE(importRow(1).occupied() || importRow(3).occupied());
}

TEST_F(BadMoments, ATableThatDoesNotComeWholeDecidesAndShowsNothing) {
    plan("stall@EB");
    launchConnected();
    EXPECT_TRUE(importRow(1).occupied());  // asked for again
    select({3});
    stage(4, 10);
    plan("stall@EB+");
    pedal.setLoop(3, loopOf(50, 1));
    pass(20s);
    EXPECT_TRUE(importRow(3).occupied() && importRow(3).selected());
    for (auto* const button : {window->exportButton(), window->eraseButton()}) {
        button->click();
        EXPECT_TRUE(becomesIdle());
    }
    EXPECT_EQ(pedal.memory()[3], loopOf(50, 1));
    EXPECT_EQ(pedal.memory()[2], loopOf(2000, 20));
    EXPECT_EQ(line(), "Loop 3 was not erased: the pedal did not report its loops");

    pedal.unplug();
    plugIn();
    EXPECT_FALSE(importRow(4).occupied());  // not known yet
    stage(4, 10);
    pedal.clearFaults();
    window->exportButton()->click();
    EXPECT_TRUE(becomesIdle());
    EXPECT_EQ(pedal.memory()[3], loopOf(50, 1));
    EXPECT_TRUE(exportRow(4).occupied());
}

TEST_F(BadMoments, APedalThatDoesNotAnswerCountsAsBusyAndTheWindowLives) {
    launchConnected();
    select({1});
    plan("silence@E8");
    for (int press = 0; press < 3; ++press) {
        window->importButton()->click();
        pass(499ms);
        EXPECT_THAT(dialogs.take(), IsEmpty());
        pass(1ms);
        EXPECT_THAT(dialogs.take(), ElementsAre(isBusy));
    }
    pass(1min);
    EXPECT_EQ(sent(0xE8).size(), 1U);
    KZQ7306::looper()->interrupt();
    executor.settle();
    EXPECT_EQ(sent(0xE8).size(), 2U);  // a poll; the later presses have left nothing behind
    pedal.unplug();
    executor.settle();
    EXPECT_TRUE(window->saysNoPedal());
    plugIn();
    select({1});
    window->importButton()->click();
    EXPECT_TRUE(becomesIdle());
    EXPECT_THAT(files(), ElementsAre("Loop 1.wav"));
}

TEST_F(BadMoments, ARefusedBatchLeavesTheShieldForTheRestOfTheRun) {
    launchConnected();
    select({1});
    window->importButton()->click();
    pass(50ms);
    pedal.setBusy(true);  // played within the 100 ms
    pass(1h);
    EXPECT_TRUE(shieldUp() && delegate->progress()->isVisible());
    EXPECT_THAT(files(), IsEmpty());
    delegate->exportButtonClicked();
    EXPECT_THAT(dialogs.take(), ElementsAre("folder Save", isBusy));
    delegate->progress()->cancel();
    pass(1min);
    EXPECT_EQ(resets(), 0);  // it is played, and not ours
    pedal.unplug();
    pass(1min);
    EXPECT_TRUE(shieldUp());
    delegate->applicationWillTerminate();
}

TEST_F(BadMoments, TheComputerStaysAwakeUntilATransferEndsHoweverItEnds) {
    std::vector<AwakeFor> asked;
    std::weak_ptr<int> lock;
    Executor::Duration answerTime{};
    keepAwake = [&](AwakeFor work) {
        executor.sleep(answerTime);
        asked.push_back(work);
        const auto hold = std::make_shared<int>();
        lock = hold;
        return AwakeLock{hold, {}};
    };
    launchConnected();
    port.pace = port.writePace = 1s;
    const auto import = [this] {
        select({1});
        window->importButton()->click();
        executor.advanceUntil([this] { return shieldUp(); }, 1s);
        pass(1s);
    };
    import();
    EXPECT_FALSE(lock.expired());
    EXPECT_TRUE(becomesIdle());
    EXPECT_TRUE(lock.expired());
    stage(2, 600);
    window->exportButton()->click();
    pass(1s);
    EXPECT_FALSE(lock.expired());
    EXPECT_TRUE(becomesIdle());
    EXPECT_TRUE(lock.expired());
    answerTime = 1min;  // longer than the import lasts
    import();
    EXPECT_TRUE(becomesIdle());
    pass(1min);
    EXPECT_TRUE(lock.expired());
    answerTime = 0s;
    import();
    EXPECT_FALSE(lock.expired());
    pedal.unplug();
    EXPECT_TRUE(becomesIdle());
    EXPECT_TRUE(lock.expired());
    plugIn();
    delegate->installFirmware(audioFile("firmware.bin", 10));
    EXPECT_TRUE(executor.advanceUntil([&] { return asked.size() == 5 && lock.expired(); }, 3min));
    EXPECT_EQ(asked.back(), AwakeFor::firmware);
}

TEST_F(BadMoments, AConversionThatFinishesAfterThePedalHasLeft) {
    launchConnected();
    conversionTime = 10s;
    drop(2, audioFile("late.wav", 10));
    executor.settle();
    pedal.unplug();
    pass(10s);
    EXPECT_EQ(exportRow(2).name(), "late");
    EXPECT_EQ(delegate->selectedExportSlots().at(2_slot).bytes, 60U);
    EXPECT_TRUE(window->saysNoPedal());
    window->exportButton()->click();
    pass(1s);
    EXPECT_THAT(dialogs.take(), ElementsAre(isBusy));
    drop(4, audioFile("later.wav", 10));
    executor.settle();
    delegate->applicationWillTerminate();  // with a conversion under way
    EXPECT_EQ(workingCopies(), 0);
    delegate.reset();
    pass(1min);
}

class EveryState : public FlowTest, public testing::WithParamInterface<int> {
  protected:
    void reach(int state) {
        switch (state) {
            case 1:
                return window->importButton()->click();
            case 2:
                window->importButton()->click();
                return pass(50ms);
            case 3:
                window->importButton()->click();
                return pass(2s);
            case 4:
                plan("silence@in:2");
                window->importButton()->click();
                return pass(5s);
            case 5:
                window->exportButton()->click();
                return pass(2s);
            case 6:
                window->eraseButton()->click();
                return pass(10ms);
            case 7:
                delegate->installFirmware(audioFile("firmware.bin", 10));
                return pass(4s);
            case 8:
                verifyAfterExport();
                window->exportButton()->click();
                return pass(8s);  // its copy has gone with the export
            case 9:
                pedal.unplug();
                return executor.settle();
            default:
                return type(1, "half typed");
        }
    }
};

TEST_P(EveryState, TheProgramCanEnd) {
    port.pace = port.writePace = 1s;
    launchConnected();
    select({1, 3});
    stage(2, 1000);
    reach(GetParam());
    window->close();
    delegate->applicationWillTerminate();
    EXPECT_EQ(workingCopies(),
              GetParam() == 7 || GetParam() == 9 ? 1 : 0);  // a departure drops what was staged
    std::weak_ptr<AppDelegate> rest = delegate;
    delegate.reset();
    EXPECT_TRUE(rest.expired());
    pass(1min);  // the workers go on without it
}

INSTANTIATE_TEST_SUITE_P(Flows, EveryState, testing::Range(0, 10));

}  // namespace

}  // namespace kzq::test
