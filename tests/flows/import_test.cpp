#include <algorithm>
#include <array>
#include <cerrno>
#include <fstream>

#include "audio/wave.h"
#include "flow_fixture.h"
#include "slots/slot_field.h"

namespace kzq::test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST_F(FlowTest, ImportSavesTheCheckedLoopsInOrderUnderFreeNames) {
    launchConnected();
    select({3, 1});
    type(1, "Loop 1");
    type(3, "AC/DC");
    for (const auto* const taken : {"Loop 1.wav", "Loop 1-2.wav"}) {
        std::ofstream(folder / taken) << "mine";
    }
    pedal.clearJournal();
    dialogs.folder = [this] {
        EXPECT_EQ(sent(0xE8).size(), 1U);  // asked first
        EXPECT_EQ(importRow(3).customImportName(), "AC/DC");
        EXPECT_FALSE(shieldUp());
        return Dialogs::Chosen{panelContinue, folder};
    };
    window->importButton()->click();
    EXPECT_THAT(dialogs.shown, IsEmpty());  // the pedal has not answered yet
    executor.settle();
    EXPECT_THAT(dialogs.take(), ElementsAre("folder Save"));
    port.pace = 10ms;
    pass(99ms);
    EXPECT_FALSE(shieldUp() || delegate->progress()->isVisible());
    pass(1ms);
    const auto& progress = *delegate->progress();
    EXPECT_TRUE(shieldUp() && progress.isVisible());
    EXPECT_EQ(progress.subtitle(), "Importing 2 loops from the 7306...");
    EXPECT_EQ(progress.totalBytes(), 18'000U);
    EXPECT_EQ(progress.percent(), 0);
    pass(30ms);
    pass(30ms);  // the first loop, 6016 bytes, is through
    EXPECT_NEAR(progress.percent(), 6044 / 18'000.0, 1e-9);
    EXPECT_FALSE(importRow(1).customImportName().has_value());  // used, while the other still waits
    EXPECT_EQ(importRow(3).customImportName(), "AC/DC");
    EXPECT_EQ(contents("Loop 1-3.wav"), wave(loopOf(1000, 10).audio, 2).value());
    ASSERT_TRUE(becomesIdle());
    EXPECT_THAT(sent(0xE1), ElementsAre(0, 2));
    EXPECT_THAT(files(), ElementsAre("AC-DC.wav", "Loop 1-2.wav", "Loop 1-3.wav", "Loop 1.wav"));
    EXPECT_EQ(contents("AC-DC.wav"), wave(loopOf(2000, 20).audio, 2).value());
    EXPECT_FALSE(importRow(3).customImportName().has_value() || importRow(3).selected());
    EXPECT_THAT(delegate->selectedImportSlots(), IsEmpty());
    EXPECT_FALSE(window->importButton()->isEnabled() || window->eraseButton()->isEnabled());
    EXPECT_EQ(progress.percent(), 1);
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(FlowTest, ABusyPedalOrACancelledChooserChangesNothing) {
    launchConnected();
    select({1});
    pedal.setBusy(true);
    window->importButton()->click();
    executor.settle();
    EXPECT_THAT(dialogs.take(), ElementsAre(isBusy));
    pedal.setBusy(false);
    for (const auto& chosen : {Dialogs::Chosen{panelCancelled, folder}, Dialogs::Chosen{panelOk, {}}}) {
        dialogs.folder = [&chosen] { return chosen; };
        window->importButton()->click();
        pass(1s);
        EXPECT_THAT(dialogs.take(), ElementsAre("folder Save"));
    }
    EXPECT_FALSE(shieldUp());
    EXPECT_THAT(delegate->selectedImportSlots(), ElementsAre(1_slot));
    EXPECT_THAT(files(), IsEmpty());
}

TEST_F(FlowTest, ALoopThatFailsIsLeftOutAndAFileThatFailsHasNoAlert) {
    writeFile = [](const auto& place, auto name, auto extension, auto bytes) {
        return name == "Loop 3" ? Result<std::filesystem::path>(Trouble{Trouble::Kind::file, "write", ENOSPC})
                                : writeNewFile(place, name, extension, bytes);
    };
    launchConnected();
    select({1, 3, 20});
    plan("refuse@E1");
    window->importButton()->click();
    ASSERT_TRUE(becomesIdle());
    EXPECT_EQ(delegate->progress()->percent(), 1);
    EXPECT_THAT(files(), ElementsAre("Loop 20.wav"));
    EXPECT_THAT(dialogs.take(), ElementsAre("folder Save"));
    EXPECT_THAT(logged,
                testing::Contains(
                    "1 of 3 loops saved: the pedal refused to send loop 1. Loop 3: no space left on the "
                    "disk. Loops 1 and 3 are still only on the pedal."));
    EXPECT_THAT(delegate->selectedImportSlots(), IsEmpty());
}

TEST_F(FlowTest, AnImportThatHasNoRoomOrCannotBeTrueMovesNothing) {
    launchConnected();
    select({1, 20});
    pedal.clearJournal();
    freeSpace = 1001 * 6 + 2 * 44 - 1;
    window->importButton()->click();
    ASSERT_TRUE(becomesIdle());
    EXPECT_THAT(sent(0xE1), IsEmpty());
    EXPECT_THAT(logged, testing::Contains(HasSubstr("Nothing was saved: too little space on the disk. ")));
    EXPECT_THAT(delegate->selectedImportSlots(), ElementsAre(1_slot, 20_slot));
    ++freeSpace;
    port.tamper = [](std::uint8_t request, std::span<std::uint8_t> reply) {
        if (request == 0xEC) {  // loop 20: 715,827,883 frames, whose size wraps to 2 bytes
            std::ranges::copy(std::array<std::uint8_t, 4>{0xAB, 0xAA, 0xAA, 0x2A}, reply.begin() + 54);
        }
    };
    window->importButton()->click();
    ASSERT_TRUE(becomesIdle());
    EXPECT_THAT(files(), ElementsAre("Loop 1.wav"));
    EXPECT_EQ(line(), "1 of 2 loops saved: the pedal reports loop 20 as longer than 24 minutes");
    select({1, 20});
    pass(6s);  // now its row shows it
    pedal.clearJournal();
    window->importButton()->click();
    ASSERT_TRUE(becomesIdle());
    EXPECT_THAT(sent(0xE1), IsEmpty());
    EXPECT_EQ(line(), "Nothing was saved: the pedal reports loop 20 as longer than 24 minutes");
    port.tamper = {};
    pass(6s);
    window->importButton()->click();
    ASSERT_TRUE(becomesIdle());
    EXPECT_THAT(files(), ElementsAre("Loop 1-2.wav", "Loop 1.wav", "Loop 20.wav"));
}

TEST_F(FlowTest, CancelEndsAnImportAndAPedalThatHasFallenSilentIsReset) {
    launchConnected();
    for (const bool silent : {false, true}) {
        select({1, 3});
        port.pace = 10ms;
        if (silent) {
            plan("silence@in:3");
        }
        window->importButton()->click();
        pass(130ms);
        ASSERT_TRUE(shieldUp());
        pass(silent ? 1min : 0s);  // for as long as it pleases
        ASSERT_TRUE(shieldUp());
        EXPECT_EQ(std::ranges::count(logged, "The pedal has stopped answering. Cancel, or unplug it."),
                  silent ? 1 : 0);
        delegate->progress()->cancel();
        EXPECT_FALSE(delegate->progress()->isVisible());
        pass(510ms);
        EXPECT_FALSE(shieldUp()) << silent;
        EXPECT_EQ(delegate->progress()->percent(), 1) << "what had moved before is not shown any more";
        EXPECT_THAT(files(), IsEmpty());
        EXPECT_FALSE(window->importButton()->isEnabled());
        pedal.clearFaults();
        pass(6s);
    }
}

}  // namespace

}  // namespace kzq::test
