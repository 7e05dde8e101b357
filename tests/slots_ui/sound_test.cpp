#include "row_fixture.h"
#include "ui/palette.h"

namespace kzq::test {
namespace {

using testing::ElementsAre;
using Ring = RowSound::Ring;

constexpr Frames length{151ULL * 44'100};

RowSound playing() {
    RowSound sound;
    sound.ring = Ring::playing;
    sound.position = 0.25;
    sound.played = std::chrono::milliseconds(37'999);
    return sound;
}

class RowSounds : public RowFixture {
  protected:
    Slot& loop() {
        auto& row = recorded(1);
        row.setLength(length);
        return row;
    }
    /// Its file would replace loop 2.
    Slot& yellow() {
        auto& row = exportRow(2);
        row.setOccupied(true);
        stage(row, "/tmp/I.wav");
        row.setLength({31ULL * 44'100});
        return row;
    }
};

TEST_F(RowSounds, TheNumberTurnsIntoARingUnderPointerAndFocus) {
    auto& row = loop();
    QEnterEvent enter({}, {}, {});
    QCoreApplication::sendEvent(row.view(), &enter);
    EXPECT_TRUE(row.numberLabel()->isHidden());
    QCoreApplication::sendEvent(row.ring(), &enter);
    QTest::mousePress(row.ring(), Qt::LeftButton);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(row.ring(), &leave);
    QTest::mouseRelease(row.ring(), Qt::LeftButton);
    EXPECT_THAT(takeCalls(), ElementsAre("play import 1"));
    QCoreApplication::sendEvent(row.view(), &leave);
    EXPECT_EQ(row.ring()->pictureName(), "");
    row.setSound(playing());
    EXPECT_TRUE(row.numberLabel()->isHidden());
    row.setSound({});
    EXPECT_FALSE(row.numberLabel()->isHidden());
}

TEST_F(RowSounds, TheRingHasTheFocusAndPPlaysUnlessANameIsTyped) {
    auto& row = loop();
    row.button()->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(row.ring()->pictureName(), "Play_Row");
    QTest::keyClick(row.button(), Qt::Key_P);
    QTest::keyClick(row.button(), Qt::Key_P, Qt::ShiftModifier);  // there is nothing to compare
    QTest::keyClick(row.button(), Qt::Key_P, Qt::ControlModifier);
    EXPECT_THAT(takeCalls(), ElementsAre("play import 1"));
    QTest::keyClick(row.button(), Qt::Key_Left);
    EXPECT_EQ(QApplication::focusWidget(), row.ring());
    QTest::keyClick(row.ring(), Qt::Key_Return);
    EXPECT_THAT(takeCalls(), ElementsAre("play import 1"));
    QTest::keyClick(row.ring(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), exportRow(1).button());  // as from the row's own stop

    click(*row.field());
    takeCalls();
    QTest::keyClick(&editor, Qt::Key_P);
    EXPECT_THAT(takeCalls(), ElementsAre());
    EXPECT_EQ(fieldText(row), "p");
    EXPECT_EQ(row.clock(), "2:31");

    auto& empty = exportRow(3);
    empty.button()->setFocus(Qt::TabFocusReason);
    QTest::keyClick(empty.button(), Qt::Key_P);
    EXPECT_THAT(takeCalls(), ElementsAre());
    EXPECT_EQ(empty.ring()->pictureName(), "");
}

TEST_F(RowSounds, BShowsTheLoopInPlaceOfTheFileAndOnlyAsLongAsItPlays) {
    auto& row = yellow();
    EXPECT_EQ(row.clock(), "0:31");
    auto sound = playing();
    sound.peaks = std::make_shared<Peaks>();
    sound.position = -1;
    row.setSound(sound);
    const auto resting = row.layout();
    sound.position = 0.25;
    sound.compares = true;
    row.setSound(sound);
    EXPECT_EQ(row.nameInSight(), "I");
    EXPECT_EQ(row.nameColour(KZQYellow()), KZQYellow());
    EXPECT_EQ(row.clock(), "0:37");
    takeCalls();
    click(*row.compare());
    EXPECT_FALSE(row.compare()->isChecked());  // it shows what sounds, not what was asked for
    row.x()->setFocus(Qt::TabFocusReason);
    QTest::keyClick(row.x(), Qt::Key_Right);
    EXPECT_EQ(QApplication::focusWidget(), row.compare());
    QTest::keyClick(row.compare(), Qt::Key_P, Qt::ShiftModifier);
    EXPECT_THAT(takeCalls(), ElementsAre("compare export 2", "compare export 2"));
    sound.other = true;
    row.setSound(sound);
    EXPECT_EQ(row.compare()->pictureName(), "Export_compare_B");
    EXPECT_EQ(row.layout(), resting);
    row.setDropSign(DropSign{});
    EXPECT_TRUE(row.compare()->isHidden()) << "the sign lies over it";
    row.setDropSign(std::nullopt);
    EXPECT_FALSE(row.compare()->isHidden());
    row.compare()->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(row.nameInSight(), "Loop 2");
    EXPECT_EQ(row.nameColour(KZQYellow()), KZQWhite());
    EXPECT_EQ(row.name(), "I");
    row.setSound({});
    EXPECT_EQ(row.nameInSight(), "I");
    EXPECT_EQ(QApplication::focusWidget(), row.button());
}

TEST_F(RowSounds, AScreenReaderHearsWhatCanBeHeard) {
    auto& row = loop();
    EXPECT_EQ(row.ring()->accessibleName(), "Play Loop 1, 2 minutes 31 seconds");
    row.setSelected(true);
    row.setCustomImportName("bass");
    row.setSound(playing());
    EXPECT_EQ(row.ring()->accessibleName(), "Stop Loop 1");
    EXPECT_EQ(row.view()->accessibleDescription(), "bass, 2 minutes 31 seconds, picked up, playing");
    EXPECT_EQ(row.button()->accessibleDescription(), "bass, 2 minutes 31 seconds");
    EXPECT_EQ(yellow().ring()->accessibleName(), "Play I, 31 seconds");
    EXPECT_EQ(yellow().button()->accessibleDescription(), "I, 31 seconds, staged, replaces a loop");
    EXPECT_EQ(yellow().compare()->accessibleName(), "Compare with Loop 2");
}

}  // namespace
}  // namespace kzq::test
