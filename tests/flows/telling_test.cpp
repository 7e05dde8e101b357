#include <QAction>
#include <QMenuBar>
#include <QUrl>

#include "flow_fixture.h"
#include "ui/status/outcome_row.h"

// What the status line says, and what its links do.

namespace kzq::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(FlowTest, AnImportOntoAFullDiskSaysWhatIsMissingAndTriesItAgain) {
    bool full = true;
    writeFile = [&full](const auto& place, auto name, auto extension, auto bytes) {
        return full && name != "Loop 1"
                   ? Result<std::filesystem::path>(Trouble{Trouble::Kind::file, "write", ENOSPC})
                   : writeNewFile(place, name, extension, bytes);
    };
    launchConnected();
    EXPECT_EQ(line(), "7306 \u00b7 3 loops \u00b7 firmware 1.05");
    select({1, 3, 20});
    type(3, "typed");
    window->importButton()->click();
    ASSERT_TRUE(becomesIdle());
    EXPECT_EQ(line(), "1 of 3 loops saved: no space left on the disk");
    select({20});
    dialogs.answer = [] { return alertSecondButton; };
    window->eraseButton()->click();
    dialogs.answer = [] { return alertFirstButton; };
    window->eraseButton()->click();
    EXPECT_EQ(std::ranges::count(logged, "Loop 20 was not saved. What is erased now is gone."), 1);
    EXPECT_EQ(line(), "Loop 20 was not saved") << "said before the question";
    EXPECT_EQ(dialogs.take().back(), "Erased loop audio cannot be restored. Would you like to continue?");
    ASSERT_TRUE(becomesIdle());

    full = false;
    auto& list = window->statusLine().list();
    window->statusLine().openList(Qt::MouseFocusReason);
    auto* const retry = list.rows()[2]->remedy();
    ASSERT_EQ(retry->text(), "Try again");
    retry->click();
    pass(0s);
    EXPECT_THAT(delegate->selectedImportSlots(), ElementsAre(3_slot)) << "20 has gone";
    EXPECT_EQ(importRow(3).name(), "typed");
    list.close();
    window->importButton()->click();
    ASSERT_TRUE(becomesIdle());
    EXPECT_THAT(files(), ElementsAre("Loop 1.wav", "typed.wav"));
    pass(10s);
    EXPECT_EQ(line(), "Loop 3 saved in imports");
    window->statusLine().link().click();
    EXPECT_EQ(dialogs.take().back(), "file://" + folder.string());
}

TEST_F(FlowTest, AMissingRuleIsSetUpAndTheImportGoesOn) {
    bool missing = true;  // here the file says what the link would
    writeFile = [&missing](const auto& place, auto name, auto extension, auto bytes) {
        return missing ? Result<std::filesystem::path>(Trouble{.kind = Trouble::Kind::roadNotInstalled,
                                                               .remedy = "sudo install -m 644 /a/some.rules "
                                                                         "/etc/udev/rules.d/ && sudo two"})
                       : writeNewFile(place, name, extension, bytes);
    };
    std::vector<std::string> commands;
    bool allowed = false;
    asRoot = [&](const std::string& given) -> Result<void> {
        commands.push_back(given);
        if (!allowed) {
            return Trouble{Trouble::Kind::declined, "pkexec", 0, "no password was given"};
        }
        return {};
    };
    bool blocked = true;
    examine = [&blocked] {
        return std::vector<Finding>{{Trouble::Kind::heldByAnother, true, "By this window.", {}},
                                    {Trouble::Kind::roadNotInForce, blocked, "Not yet.", "sudo three"}};
    };
    launchConnected();
    select({3});
    type(3, "typed");
    window->importButton()->click();
    ASSERT_TRUE(becomesIdle());
    dialogs.take();
    const auto pressLink = [this] {
        window->statusLine().link().click();
        pass(10s);
        return line();
    };
    EXPECT_EQ(line(), "Loops cannot be imported: the system rule is missing");
    dialogs.answer = [] { return alertSecondButton; };
    pressLink();
    EXPECT_THAT(dialogs.take(), ElementsAre(testing::HasSubstr("some.rules goes into /etc/udev/rules.d.\n")));
    EXPECT_THAT(commands, IsEmpty());
    select({3});
    window->importButton()->click();
    ASSERT_TRUE(becomesIdle());
    dialogs.answer = [] { return alertFirstButton; };
    EXPECT_EQ(pressLink(), "The system rule was not installed: no password was given");
    allowed = true;
    EXPECT_EQ(pressLink(), "The system rule is installed, but something else is in the way");
    EXPECT_EQ(commands.back(), "install -m 644 /a/some.rules /etc/udev/rules.d/ && two");
    blocked = false;
    EXPECT_EQ(pressLink(), "Loops can be imported now");
    EXPECT_EQ(commands.back(), "three") << "what was missing last";
    missing = false;
    pressLink();
    EXPECT_THAT(delegate->selectedImportSlots(), ElementsAre(3_slot));
    window->importButton()->click();
    ASSERT_TRUE(becomesIdle());
    EXPECT_EQ(files().size(), 1U);
}

TEST_F(FlowTest, AReportHasWhatWasToldWithoutNamesOfFilesAndReplacesOnlyWhatTheUserChose) {
    const auto contents = [this](const std::string& name) { return readText(base / "files" / name); };
    const auto entry = [this] {
        for (auto* const action : window->menuBar()->findChildren<QAction*>()) {
            if (action->text() == "&Save Report\u2026") {
                return action;
            }
        }
        return static_cast<QAction*>(nullptr);
    };
    const auto saved = [&](const std::string& name) {
        dialogs.file = [this, name] { return Dialogs::Chosen{panelOk, base / "files" / name}; };
        entry()->trigger();
        pass(1s);
        return line();
    };
    report = {.versions = {"Qt 6"}, .log = {"audio: " + (base / "files" / "Bridge.ogg").string() + ": no"}};
    launchConnected();
    drop(2, base / "files" / "Bridge.ogg");
    executor.settle();
    window->statusLine().openList(Qt::MouseFocusReason);  // now it has been seen
    window->statusLine().list().close();
    EXPECT_EQ(saved("one.txt"), "Report saved in files");
    EXPECT_THAT(contents("one.txt"), testing::AllOf(testing::HasSubstr("failed: \"<file 1>\" cannot be read"),
                                                    testing::HasSubstr("audio: <file 1>: no"),
                                                    testing::Not(testing::HasSubstr("Bridge"))));
    dialogs.ticks = true;
    saved("one.txt");
    EXPECT_THAT(contents("one.txt"), testing::HasSubstr("\"Bridge.ogg\" cannot be read"));
    EXPECT_FALSE(std::filesystem::exists(base / "files" / "one-2.txt")) << "the dialog had asked";
    EXPECT_EQ(saved("none/one.txt"), "The report was not saved: the folder is not there any more");
    dialogs.answer = [] { return alertSecondButton; };
    dialogs.take();
    window->statusLine().link().click();
    pass(1s);
    EXPECT_EQ(dialogs.take().size(), 1U) << "the question again, and no chooser after a Cancel";
}

TEST_F(FlowTest, FilesThatAreNotUsedAreNamed) {
    launchConnected();
    drop(2, base / "files" / "Bridge.ogg");
    executor.settle();
    EXPECT_EQ(line(), "\"Bridge.ogg\" cannot be read");
    const auto file = QUrl::fromLocalFile(QString::fromStdString(audioFile("one.wav", 9).string()));
    delegate->slotReceivedDroppedURLs(exportRow(2), {file, file, file});
    executor.settle();
    EXPECT_EQ(line(), "Only the first of 3 files was used");
    EXPECT_EQ(delegate->selectedExportSlots().size(), 1U);

    pedal.unplug();
    pass(1s);
    EXPECT_TRUE(delegate->selectedExportSlots().empty());
    drop(2, audioFile("newer.wav", 11));
    stage(4, 10);
    plugIn();
    pass(1s);
    EXPECT_EQ(line(), "Plugged in: staged files were removed, as the pedal's slots may differ");
    window->statusLine().link().click();
    pass(1s);
    EXPECT_EQ(delegate->selectedExportSlots().size(), 2U);
    ASSERT_TRUE(exportRow(2).exporting());
    EXPECT_EQ(exportRow(2).exporting()->fileName(), "newer.wav");
    plan("refuse@E2");
    window->exportButton()->click();
    ASSERT_TRUE(becomesIdle());
    EXPECT_EQ(line(), "1 of 2 loops written: the pedal refused loop 2");
    window->statusLine().link().click();
    pass(1s);
    EXPECT_THAT(delegate->selectedExportSlots(), ElementsAre(testing::Key(2_slot)));
}

TEST_F(FlowTest, WhatIsSaidOfAFileEndsOnceItOrItsRowIsServed) {
    launchConnected();
    const QList<QUrl> two{QUrl::fromLocalFile(QString::fromStdString(audioFile("one.wav", 9).string())),
                          QUrl::fromLocalFile(QString::fromStdString(audioFile("two.wav", 9).string()))};
    const auto drops = [&](std::uint8_t row) {
        delegate->slotReceivedDroppedURLs(exportRow(row), two);
        executor.settle();
        EXPECT_EQ(line(), "Only the first of 2 files was used");
    };
    drops(2);
    delegate->slotReceivedDroppedURLs(exportRow(4), {two[1]});
    executor.settle();
    EXPECT_THAT(line(), testing::StartsWith("7306"));
    drops(5);
    window->exportButton()->click();
    ASSERT_TRUE(becomesIdle());
    EXPECT_EQ(line(), "3 loops written");

    drop(6, base / "files" / "Bridge.ogg");
    executor.settle();
    stage(7, 10);
    EXPECT_EQ(line(), "\"Bridge.ogg\" cannot be read");
    stage(6, 10);
    EXPECT_THAT(line(), testing::Not(testing::HasSubstr("Bridge")));
}

TEST_F(FlowTest, ABackupIsSuggestedOncePerPedalUntilThereIsOne) {
    bool there = false;
    wasEverBackedUp = [&there] { return there; };
    launchConnected();
    for (const auto* const end : {"\u00b7 nothing has been backed up yet", "firmware 1.05"}) {
        EXPECT_THAT(line(), testing::EndsWith(end));
        drop(2, base / "files" / "Bridge.ogg");
        stage(2, 10);
        EXPECT_THAT(line(), testing::EndsWith("firmware 1.05"));
        delegate->exportRemoved(exportRow(2));
        there = !there;
        pedal.unplug();
        executor.settle();
        plugIn();
    }
    EXPECT_THAT(line(), testing::EndsWith("nothing has been backed up yet"));
}

TEST_F(FlowTest, AfterAReplugOnlyTheSameLoopsAreSelectedAgain) {
    writeFile = [](auto&&...) {
        return Result<std::filesystem::path>(Trouble{Trouble::Kind::file, "write", ENOSPC});
    };
    launchConnected();
    select({1, 3});
    window->importButton()->click();
    ASSERT_TRUE(becomesIdle());
    pedal.unplug();
    pass(1s);
    pedal.setLoop(2, loopOf(50, 9));
    plugIn();
    pass(1s);
    window->statusLine().link().click();
    pass(1s);
    EXPECT_THAT(delegate->selectedImportSlots(), ElementsAre(1_slot)) << "it may be another pedal";
}

TEST_F(FlowTest, AnExportThatLosesItsPedalOffersItsFilesItself) {
    launchConnected();
    stage(4, 10);
    port.writePace = 1s;
    window->exportButton()->click();
    pass(500ms);
    ASSERT_TRUE(shieldUp());
    pedal.unplug();
    plugIn();
    ASSERT_TRUE(becomesIdle());
    pass(1s);
    EXPECT_THAT(line(), testing::HasSubstr("written: the pedal was unplugged"));
    window->statusLine().link().click();
    pass(1s);
    EXPECT_THAT(delegate->selectedExportSlots(), ElementsAre(testing::Key(4_slot)));
    stage(3, 10);
    dialogs.answer = [this] {
        pedal.unplug();
        executor.advance(1s);
        return alertThirdButton;
    };
    window->exportButton()->click();
    pass(1s);
    EXPECT_EQ(line(), "Nothing was written: what is staged changed meanwhile");
    plugIn();
    pass(1s);
    EXPECT_THAT(logged, testing::Not(testing::Contains(testing::HasSubstr("let go"))));
    window->statusLine().link().click();
    pass(1s);
    EXPECT_EQ(delegate->selectedExportSlots().size(), 2U);
}

TEST_F(FlowTest, APedalThatIsSilentIsNamedAsLongAsItIsWhateverElseEnds) {
    writeFile = [](auto&&...) {
        return Result<std::filesystem::path>(
            Trouble{.kind = Trouble::Kind::roadNotInstalled, .remedy = "sudo one"});
    };
    asRoot = [this](const std::string& /*commands*/) -> Result<void> {
        executor.sleep(30s);
        return {};
    };
    examine = [] { return std::vector<Finding>(); };
    launchConnected();
    select({3});
    window->importButton()->click();
    ASSERT_TRUE(becomesIdle());
    window->statusLine().link().click();
    pass(100ms);
    EXPECT_EQ(line(), "Setting up\u2026");
    select({1, 3});
    port.pace = 10ms;
    plan("silence@in:3");
    window->importButton()->click();
    for (int i = 0; i < 2; ++i) {
        pass(20s);
        EXPECT_EQ(line(), "The pedal has stopped answering: cancel, or unplug it") << i;
    }
    delegate->progress()->cancel();
    ASSERT_TRUE(becomesIdle());
}

TEST_F(FlowTest, ADamagedFileIsUsedWhereThereIsRoomButNotDuringAnExport) {
    launchConnected();
    flaws["torn.wav"] = {Trouble::Kind::endsEarly, "torn.wav", 0, "310"};
    drop(2, audioFile("torn.wav", 50));
    executor.settle();
    EXPECT_EQ(line(), "\"torn.wav\" is damaged: 310 ms are missing at its end");
    EXPECT_THAT(delegate->selectedExportSlots(), IsEmpty());
    stage(5, 10);
    const auto press = [this](std::size_t row) {
        window->statusLine().openList(Qt::MouseFocusReason);
        window->statusLine().list().rows().at(row)->remedy()->click();
        window->statusLine().list().close();
        pass(0s);
        executor.settle();
    };
    port.writePace = 2s;
    window->exportButton()->click();
    pass(1s);
    ASSERT_TRUE(shieldUp());
    press(0);
    ASSERT_TRUE(becomesIdle());
    EXPECT_THAT(delegate->selectedExportSlots(), IsEmpty()) << "not while the window is covered";
    press(1);
    EXPECT_EQ(delegate->selectedExportSlots().at(2_slot).bytes, 300U);
    press(1);
    EXPECT_TRUE(delegate->selectedExportSlots().contains(4_slot)) << "3 and 5 have loops";
    EXPECT_EQ(line(), "\"torn.wav\" goes to the row of Loop 4");
    for (std::uint8_t slot = 6; slot < 20; ++slot) {
        stage(slot, 1);
    }
    press(2);
    EXPECT_EQ(line(), "There is no free row for \"torn.wav\"");
}

TEST_F(FlowTest, TenFailuresUnderAnAlertAreAllTold) {
    launchConnected();
    dialogs.answer = [this, first = true]() mutable {
        if (std::exchange(first, false)) {
            for (std::uint8_t slot = 4; slot < 14; ++slot) {
                drop(slot, base / "files" / ("lost " + std::to_string(slot) + ".mp3"));
            }
            drop(14, audioFile("long too.wav", 70'000'000));
            executor.settle();
            EXPECT_EQ(dialogs.shown.size(), 1U) << "one at a time";
        }
        return alertFirstButton;
    };
    drop(2, audioFile("long.wav", 70'000'000));
    executor.settle();
    EXPECT_EQ(dialogs.take().size(), 2U);
    EXPECT_EQ(line(), "\"lost 13.mp3\" cannot be read");
    window->statusLine().openList(Qt::MouseFocusReason);
    EXPECT_EQ(window->statusLine().list().rows().size(), 10U);
    stage(4, 10);
}

TEST_F(FlowTest, AConversionThatEndsDuringAnExportIsStagedAfterItAndAlertsWaitForItsEnd) {
    launchConnected();
    stage(4, 10);
    conversionTime = 300ms;
    drop(5, audioFile("late.wav", 20));
    drop(6, audioFile("long.wav", 70'000'000));
    drop(7, audioFile("longer.wav", 80'000'000));
    port.writePace = 1s;
    window->exportButton()->click();
    pass(500ms);
    ASSERT_TRUE(shieldUp());
    EXPECT_EQ(line(), "Writing loop 4\u2026");
    EXPECT_THAT(dialogs.take(), IsEmpty());
    port.writePace = {};
    ASSERT_TRUE(becomesIdle());
    EXPECT_THAT(delegate->selectedExportSlots(), ElementsAre(testing::Key(5_slot)));
    EXPECT_EQ(dialogs.take().size(), 2U);
    EXPECT_EQ(line(), "Loop 4 written");
}

}  // namespace

}  // namespace kzq::test
