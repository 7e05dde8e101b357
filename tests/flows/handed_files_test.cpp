#include <QUrl>

#include "flow_fixture.h"

namespace kzq::test {

namespace {

using testing::IsEmpty;

class HandedFilesTest : public FlowTest {
  protected:
    void hand(std::initializer_list<const char*> names) {
        QList<QUrl> files;
        for (const auto* const name : names) {
            files += QUrl::fromLocalFile(QString::fromStdString(audioFile(name, 5)));
        }
        delegate->openFiles(files);
        executor.settle();
    }
    std::string nameIn(std::uint8_t slot) { return exportRow(slot).name().value_or("").toStdString(); }
};

TEST_F(HandedFilesTest, TakeTheNextRowsThatHaveNeitherALoopNorAFile) {
    launchConnected();
    stage(2, 10);
    conversionTime = 1s;
    drop(4, audioFile("still converting.wav", 10));
    executor.settle();
    hand({"one.wav", "two.wav"});
    pass(1s);
    EXPECT_EQ(nameIn(4), "still converting");
    EXPECT_EQ(nameIn(5), "one");
    EXPECT_EQ(nameIn(6), "two");
    EXPECT_EQ(window->tabs()->currentIndex(), 1);
    EXPECT_TRUE(window->warning()->isHidden());
    drop(7, base / "files" / "missing.wav");
    pass(1s);
    hand({"8", "9", "10", "11", "12", "13", "14", "15", "16", "17", "18", "19", "20", "last.wav"});
    EXPECT_EQ(line(), "Only 13 of 14 files were used: no other row is free");
    pass(1s);
    EXPECT_EQ(nameIn(7), "8") << "the file that could not be used has left it";
    EXPECT_EQ(nameIn(19), "20");
    EXPECT_EQ(delegate->selectedExportSlots().size(), 17U);
}

TEST_F(HandedFilesTest, WaitForAPedalSinceNoRowIsKnownToBeFree) {
    diagnosis = {{Trouble::Kind::heldByAnother, true, "", {}, "kzq7306ctl (process 4711)"}};
    launch();
    EXPECT_EQ(line(), "kzq7306ctl (process 4711) is using the pedal");
    hand({"one.wav", "two.wav"});
    EXPECT_EQ(line(), "kzq7306ctl (process 4711) is using the pedal \u00b7 2 files are waiting");
    EXPECT_THAT(delegate->selectedExportSlots(), IsEmpty());
    plugIn();
    EXPECT_THAT(line(), testing::StartsWith("7306 \u00b7 3 loops \u00b7 firmware"));
    EXPECT_EQ(nameIn(2), "one");
    EXPECT_EQ(nameIn(4), "two");
    diagnosis.clear();
    pedal.unplug();
    executor.settle();
    EXPECT_EQ(line(), "No pedal connected");
}

}  // namespace

}  // namespace kzq::test
