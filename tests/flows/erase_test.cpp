#include "flow_fixture.h"
#include "slots/slot_field.h"

namespace kzq::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto erasing = "Erased loop audio cannot be restored. Would you like to continue?";

TEST_F(FlowTest, EraseAsksAndThenReadsThePedalAnewBehindTheShield) {
    launchConnected();
    select({20, 3});
    type(3, "typed");
    pedal.clearJournal();
    dialogs.answer = [this] {
        EXPECT_THAT(sent(0xE8), IsEmpty());  // asked before the pedal
        EXPECT_FALSE(shieldUp());
        return alertFirstButton;
    };
    window->eraseButton()->click();
    EXPECT_THAT(dialogs.take(), ElementsAre(erasing));
    EXPECT_FALSE(shieldUp());
    executor.settle();
    EXPECT_TRUE(shieldUp());
    EXPECT_FALSE(delegate->progress()->isVisible());
    EXPECT_EQ(importRow(3).field()->currentEditor(), nullptr);
    EXPECT_THAT(delegate->selectedImportSlots(), IsEmpty());
    EXPECT_TRUE(window->importButton()->isEnabled() && window->eraseButton()->isEnabled());
    pass(49ms);  // 25 for each
    EXPECT_TRUE(shieldUp() && importRow(3).occupied());
    pass(1ms);
    EXPECT_FALSE(shieldUp());
    EXPECT_THAT(sent(0xED), ElementsAre(2, 19));
    EXPECT_FALSE(importRow(3).occupied() || exportRow(20).occupied());
    EXPECT_TRUE(importRow(1).occupied());
    EXPECT_FALSE(window->importButton()->isEnabled() || window->eraseButton()->isEnabled());
}

TEST_F(FlowTest, EraseChangesNothingAfterANoAtABusyPedalOrWithoutASelection) {
    launchConnected();
    select({3});
    pedal.clearJournal();
    for (const auto no : {alertSecondButton, alertThirdButton}) {
        dialogs.answer = [this, no] {
            delegate->openFiles({QUrl("file:///another start's")});
            executor.settle();
            EXPECT_EQ(window->tabs()->currentIndex(), 0) << "what the question is about is out of sight";
            return no;
        };
        window->eraseButton()->click();
        pass(1s);
        EXPECT_THAT(dialogs.take(), ElementsAre(erasing));
        EXPECT_EQ(window->tabs()->currentIndex(), 1);
        delegate->selectImportTab();
    }
    EXPECT_THAT(sent(0xE8), IsEmpty());
    dialogs.answer = [] { return alertFirstButton; };
    pedal.setBusy(true);
    window->eraseButton()->click();
    pass(1s);
    EXPECT_THAT(dialogs.take(), ElementsAre(erasing, isBusy));
    EXPECT_THAT(delegate->selectedImportSlots(), ElementsAre(3_slot));
    pedal.setBusy(false);
    select({3});
    delegate->eraseButtonClicked();
    pass(1s);
    EXPECT_THAT(sent(0xED), IsEmpty());
    EXPECT_FALSE(shieldUp());
    select({1, 3});
    dialogs.answer = [this] { return select({3}), alertFirstButton; };
    window->eraseButton()->click();
    ASSERT_TRUE(becomesIdle());
    EXPECT_THAT(sent(0xED), ElementsAre(0)) << "only what is still selected";
}

TEST_F(FlowTest, AnEraseThatThePedalDoesNotAnswerIsEndedSinceNobodyCanCancelIt) {
    launchConnected();
    select({3, 20});
    plan("silence@ED");
    window->eraseButton()->click();
    pass(29s);
    EXPECT_TRUE(shieldUp());
    pass(2s);
    EXPECT_FALSE(shieldUp());
    EXPECT_EQ(line(), "Some of the loops may have been erased: the pedal stopped answering");
}

}  // namespace

}  // namespace kzq::test
