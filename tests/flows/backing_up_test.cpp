#include "app/backing_up.h"

#include <algorithm>

#include "flow_fixture.h"
#include "ui/alert_button.h"
#include "ui/check_box.h"

// Back Up and Restore, from their panels to the pedal and the disk.

namespace kzq::test {

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class BackingUpTest : public FlowTest {
  protected:
    BackupPanel& panel() { return *delegate->parts().backingUp.panel(); }
    void open(const QString& entry) {
        menuEntry(entry).trigger();
        settle();
    }
    void openRestore() { open("&Restore\u2026"); }
    void settle() {
        for (int turn = 0; turn < 3; ++turn) {  // what is compared waits for what is read
            pass(100ms);
        }
    }
    void go() {
        ASSERT_TRUE(panel().acceptButton().isEnabled()) << panel().acceptButton().toolTip().toStdString();
        panel().acceptButton().click();
        ASSERT_TRUE(becomesIdle());
    }
    void backUp() {
        open("Back &Up\u2026");
        go();
    }
    /// A backup of loops 1, 3 and 20; then 1 is recorded over with the same length, 3 is erased, 7 is new.
    void backUpAndChange() {
        launchConnected();
        backUp();
        pedal.setLoop(0, loopOf(1000, 99));
        pedal.setLoop(2, std::nullopt);
        pedal.setLoop(6, loopOf(500, 40));
        pass(11s);
        dialogs.take();
    }
    /// "1 same", of the slots with something.
    std::vector<std::string> rows() {
        std::vector<std::string> all;
        for (std::size_t at = 0; at < panel().rows().size(); ++at) {
            if (const auto words = panel().rows()[at]->shown().words; !words.isEmpty()) {
                all.push_back(std::to_string(at + 1) + " " + words.toStdString());
            }
        }
        return all;
    }
    std::vector<int> slotsOnPedal() const {
        std::vector<int> all;
        for (int at = 0; at < 20; ++at) {
            if (pedal.memory()[static_cast<std::size_t>(at)]) {
                all.push_back(at + 1);
            }
        }
        return all;
    }

    fs::path backups = base / "documents/7306 backups";
};

TEST_F(BackingUpTest, WhatIsBackedUpComesBackAndNothingElseGoes) {
    int remembered = 0;
    wasEverBackedUp = [&remembered] { return remembered != 0; };
    backedUp = [&remembered] { ++remembered; };
    launchConnected();
    ASSERT_EQ(window->statusLine().link().text(), "Back Up\u2026");
    window->statusLine().link().click();
    settle();
    EXPECT_THAT(rows(), ElementsAre("1 new", "3 new", "20 new"));
    EXPECT_EQ(panel().tape().shown(), (BackupOffer{"7306 backups", "no backup yet"}));
    go();
    EXPECT_EQ(line(), "3 loops backed up in 7306 backups");
    EXPECT_EQ(remembered, 1);
    EXPECT_EQ(namesIn(backups).size(), 1U);
    pedal.setLoop(0, loopOf(1000, 99));
    pedal.setLoop(2, std::nullopt);
    pedal.setLoop(6, loopOf(500, 40));
    pass(11s);

    openRestore();
    EXPECT_THAT(rows(), ElementsAre("1 replaces 0:00", "3 new", "7 stays", "20 same"));
    EXPECT_EQ(panel().summary(), "1 same, 1 new, 1 replaced");
    EXPECT_FALSE(panel().erases());
    pedal.clearJournal();
    go();
    EXPECT_THAT(
        dialogs.take(),
        ElementsAre(
            "Restoring replaces 1 loop on the 7306. Would you like to continue? To be replaced: loop 1. "
            "Erased audio cannot be restored."));
    EXPECT_EQ(line(), "2 loops restored");
    EXPECT_THAT(slotsOnPedal(), ElementsAre(1, 3, 7, 20));
    EXPECT_EQ(pedal.memory()[0]->audio, loopOf(1000, 10).audio);
    EXPECT_THAT(sent(0xE1), ElementsAre(0, 2))
        << "read back; what was compared in the panel is not read again";
}

TEST_F(BackingUpTest, WithEraseItIsTheBackupAndAllThatGoesIsKept) {
    EXPECT_TRUE(kept.turn(true));
    backUpAndChange();
    plan("refuse@E1");
    openRestore();
    panel().eraseLoops().click();
    EXPECT_THAT(rows(), ElementsAre("1 same length", "3 new", "7 erased", "20 same"))
        << "1 could not be read";
    go();
    EXPECT_THAT(
        dialogs.take(),
        ElementsAre("Restoring replaces 1 loop and erases 1 loop on the 7306. Would "
                    "you like to continue? To be replaced: loop 1. To be erased: loop 7. Both are copied "
                    "first; Edit > Bring Back returns them."));
    EXPECT_EQ(line(), "2 loops restored, 1 erased");
    EXPECT_THAT(slotsOnPedal(), ElementsAre(1, 3, 20));
    ASSERT_EQ(kept.list().size(), 2U);
    EXPECT_TRUE(std::ranges::all_of(kept.list(),
                                    [](const auto& copy) { return copy.fate == KeptCopy::Fate::replaced; }));
    pass(11s);

    openRestore();
    EXPECT_FALSE(panel().erases()) << "off whenever it opens";
    EXPECT_FALSE(panel().acceptButton().isEnabled()) << "there is nothing to restore";
    EXPECT_THAT(rows(), ElementsAre("1 same", "3 same", "20 same"));
}

TEST_F(BackingUpTest, WithoutAYesNothingIsChanged) {
    backUpAndChange();
    openRestore();
    dialogs.answer = [this] {
        EXPECT_TRUE(shieldUp());
        return alertSecondButton;
    };
    pedal.clearJournal();
    go();
    EXPECT_THAT(sent(0xE2), IsEmpty());
    EXPECT_THAT(sent(0xED), IsEmpty());

    freeSpace = 100;
    EXPECT_TRUE(kept.turn(true));
    dialogs.answer = [] { return alertFirstButton; };
    openRestore();
    go();
    EXPECT_EQ(line(), "Nothing was restored: no copy was kept, too little space on the disk");
    EXPECT_THAT(sent(0xE2), IsEmpty());
    EXPECT_EQ(window->statusLine().link().text(), "Restore without a copy");
}

TEST_F(BackingUpTest, WhatWasNotShownIsNotTouched) {
    backUpAndChange();
    openRestore();
    panel().eraseLoops().click();
    pedal.setLoop(9, loopOf(700, 50));  // which the panel has not heard of
    pedal.clearJournal();
    panel().acceptButton().click();
    ASSERT_TRUE(becomesIdle());
    EXPECT_EQ(line(), "Nothing was restored: Loop 10 was recorded on the pedal meanwhile");
    EXPECT_THAT(sent(0xE2), IsEmpty());
    EXPECT_THAT(sent(0xED), IsEmpty());
    EXPECT_THAT(dialogs.take(), IsEmpty());
    pass(11s);
    ASSERT_TRUE(panel().isVisible());
    EXPECT_THAT(rows(), ElementsAre("1 replaces 0:00", "3 new", "7 stays", "10 stays", "20 same"));
}

TEST_F(BackingUpTest, APedalThatIsPlayedMeanwhileIsLetGo) {
    EXPECT_TRUE(kept.turn(true));
    backUpAndChange();
    openRestore();
    ASSERT_THAT(rows(), testing::Contains("20 same"));
    pedal.setBusy(true);
    pass(11s);
    EXPECT_THAT(rows(), testing::Contains("20 same length")) << "it may have been recorded over";
    pedal.setBusy(false);
    panel().decline().click();
    openRestore();
    asleep += 1h;
    pedal.clearJournal();
    pass(6s);
    EXPECT_THAT(sent(0xE1), ElementsAre(0, 19)) << "so it may while the computer sleeps";
    dialogs.answer = [this] {
        pedal.setBusy(true);
        return alertFirstButton;
    };
    pedal.clearJournal();
    go();
    EXPECT_FALSE(shieldUp()) << "nothing was begun";
    EXPECT_THAT(line(), HasSubstr("Nothing was restored"));
    EXPECT_THAT(sent(0xE2), IsEmpty());
}

TEST_F(BackingUpTest, ABackupThatIsCutShortIsNoneAndGoesOn) {
    launchConnected();
    plan("unplug@in:8");  // in the second loop
    open("Back &Up\u2026");
    go();
    EXPECT_EQ(line(), "The backup is not complete: the pedal was unplugged");
    EXPECT_THAT(namesIn(backups), ElementsAre(HasSubstr("unfinished")));
    plugIn();
    pass(2s);
    openRestore();
    EXPECT_FALSE(panel().acceptButton().isEnabled());
    panel().decline().click();
    backUp();
    EXPECT_EQ(line(), "3 loops backed up in 7306 backups");
    open("Back &Up\u2026");
    for (const std::uint8_t slot : {std::uint8_t{0}, std::uint8_t{2}, std::uint8_t{19}}) {
        pedal.setLoop(slot, std::nullopt);
    }
    go();
    pass(11s);
    EXPECT_EQ(line(), "Nothing was backed up: the last loop was erased on the pedal meanwhile");
    EXPECT_EQ(namesIn(backups).size(), 1U);
}

TEST_F(BackingUpTest, ADamagedBackupIsShownWithItsReason) {
    backUpAndChange();
    const auto first = backups / namesIn(backups).front();
    fs::create_directory(base / "documents/stick");
    fs::copy(first, base / "documents/stick/before the tour", fs::copy_options::recursive);
    const auto file = base / "documents/stick/before the tour/Loop 3.wav";
    fs::permissions(file, fs::perms::owner_write, fs::perm_options::add);
    writeText(file, "no loop");
    fs::create_directory(base / "documents/stick/spoilt");
    writeText(base / "documents/stick/spoilt/backup.json", "{");
    dialogs.folder = [this] { return Dialogs::Chosen{panelOk, base / "documents/stick"}; };
    openRestore();
    panel().otherFolder().click();
    settle();
    EXPECT_EQ(panel().tape().shown().name, "before the tour") << "the newest that can be used";
    EXPECT_THAT(rows(), testing::Contains("3 damaged"));
    EXPECT_EQ(panel().headline(),
              "This backup cannot be restored: Loop 3.wav is missing or has been changed");
    EXPECT_FALSE(panel().acceptButton().isEnabled());
    Q_EMIT panel().chosen(0);
    settle();
    EXPECT_EQ(panel().tape().shown(), (BackupOffer{"spoilt", "its index is not one of a backup", false}));
    EXPECT_FALSE(panel().acceptButton().isEnabled());
}

}  // namespace

}  // namespace kzq::test
