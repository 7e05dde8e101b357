#include "flow_fixture.h"

namespace kzq::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class VerifyTest : public FlowTest {
  protected:
    /// Exports loops to 2 and 4, which are read back in 9 and 18 pieces.
    void exportBoth(Executor::Duration pace) {
        stage(2, 1500);
        stage(4, 3000);
        port.pace = pace;
        pedal.clearJournal();
        window->exportButton()->click();
        ASSERT_TRUE(becomesIdle());
    }
};

TEST_F(VerifyTest, WhatWasWrittenIsReadBackWhileTheWindowStaysFree) {
    launchConnected();
    exportBoth(0s);
    pass(1s);
    EXPECT_THAT(sent(0xE1), IsEmpty()) << "not asked for";
    EXPECT_EQ(line(), "2 loops written");
    verifyAfterExport();
    dialogs.take();
    exportBoth(200ms);
    dialogs.take();
    EXPECT_EQ(line(), "Verifying loop 2\u2026");
    EXPECT_EQ(link(), "Stop");
    EXPECT_FALSE(shieldUp());
    EXPECT_EQ(workingCopies(), 0);
    pass(2s);
    EXPECT_EQ(line(), "Verifying loop 4\u2026");
    select({3});
    window->importButton()->click();
    window->eraseButton()->click();
    EXPECT_THAT(dialogs.take(), ElementsAre(isBusy, testing::HasSubstr("cannot be restored"), isBusy));
    stage(5, 10);
    pass(6s);
    EXPECT_EQ(line(), "2 loops verified");
    EXPECT_THAT(sent(0xE1), ElementsAre(1, 3));
    window->importButton()->click();
    ASSERT_TRUE(becomesIdle());
    EXPECT_THAT(files(), ElementsAre("Loop 3.wav"));
}

TEST_F(VerifyTest, ALoopThatDiffersIsStagedAgain) {
    launchConnected();
    verifyAfterExport();
    plan("alter@out:12");  // the third piece of loop 4
    exportBoth(0s);
    pass(1s);
    EXPECT_EQ(line(), "Loop 4 on the pedal differs from its file");
    ASSERT_EQ(link(), "Stage again");
    window->statusLine().link().click();
    pass(1s);
    EXPECT_THAT(delegate->selectedExportSlots(), ElementsAre(testing::Key(4_slot)));
    window->exportButton()->click();
    ASSERT_TRUE(becomesIdle());
    pass(10s);
    EXPECT_EQ(line(), "Loop 4 verified");
}

TEST_F(VerifyTest, ItCanBeStoppedAndCanFailAndThePedalIsFreeThen) {
    launchConnected();
    verifyAfterExport();
    const auto verifying = [this] {
        exportBoth(200ms);
        pass(2s);
        EXPECT_EQ(line(), "Verifying loop 4\u2026");
    };
    verifying();
    window->statusLine().link().click();
    pass(1s);
    EXPECT_EQ(line(), "Verifying was stopped");
    plan("refuse@E1:2");
    exportBoth(0s);
    pass(1s);
    EXPECT_EQ(line(), "Loop 4 could not be read back: the pedal refused to send it");
    verifying();
    pedal.unplug();
    pass(1s);
    EXPECT_EQ(line(), "Loop 4 could not be read back: the pedal was unplugged");
    plugIn();
    verifying();
    plan("silence@in");
    pass(20s);
    EXPECT_EQ(line(), "The pedal has stopped answering: stop, or unplug it");
    window->statusLine().link().click();
    pass(10s);
    EXPECT_EQ(link(), "");
    pedal.clearFaults();
    select({1});
    window->importButton()->click();
    ASSERT_TRUE(becomesIdle());
    EXPECT_THAT(files(), ElementsAre("Loop 1.wav"));
}

TEST_F(VerifyTest, WhatTheTableDoesNotHoldWasNotWritten) {
    launchConnected();
    verifyAfterExport();
    pedal.setMemoryListener([&](std::uint8_t address, const simulator::StoredLoop* loop) {
        if (loop != nullptr && address == 3) {
            pedal.setLoop(address, loopOf(999, 1));
        }
    });
    exportBoth(0s);
    pedal.setMemoryListener({});
    pass(10s);
    EXPECT_EQ(line(), "1 of 2 loops written: the pedal does not hold all of loop 4");
    EXPECT_EQ(link(), "Stage again");
    EXPECT_THAT(sent(0xE1), ElementsAre(1));
    stage(5, 10);
    plan("unplug@EC:2");  // when it is asked what it holds
    window->exportButton()->click();
    ASSERT_TRUE(becomesIdle());
    EXPECT_EQ(line(), "Loop 5 sent, but not checked: the pedal was unplugged");
}

}  // namespace

}  // namespace kzq::test
