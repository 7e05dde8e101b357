#include "row_fixture.h"

namespace kzq::test {
namespace {

using testing::ElementsAre;

class Grid : public RowFixture {
  protected:
    Grid() {
        for (const unsigned number : {1U, 3U, 10U, 11U, 14U, 20U}) {
            recorded(static_cast<std::uint8_t>(number));
        }
    }

    /// "button 3": what has the focus in the import list.
    std::string at() const {
        const auto* const focused = QApplication::focusWidget();
        for (const auto& row : importSlots) {
            const auto number = std::to_string(row->number());
            if (focused == row->ring() || focused == row->button() || focused == row->field()) {
                return (focused == row->ring()     ? "ring "
                        : focused == row->button() ? "button "
                                                   : "name ") +
                       number;
            }
        }
        return "elsewhere";
    }
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    std::vector<int> pickedUp() const {
        std::vector<int> numbers;
        for (const auto& row : importSlots) {
            if (row->selected()) {
                numbers.push_back(row->number());
            }
        }
        return numbers;
    }
};

TEST_F(Grid, TheKeysWalkTheRowsThatCanBeUsedInBothDirections) {
    importRow(1).button()->setFocus(Qt::TabFocusReason);
    const std::pair<Qt::Key, const char*> walk[] = {
        {Qt::Key_Up, "button 1"},      {Qt::Key_Down, "button 3"}, {Qt::Key_Right, "name 3"},
        {Qt::Key_Down, "name 10"},     {Qt::Key_Down, "name 11"},  {Qt::Key_Up, "name 10"},
        {Qt::Key_Right, "button 20"},  {Qt::Key_Up, "button 14"},  {Qt::Key_Left, "ring 14"},
        {Qt::Key_Left, "name 3"},      {Qt::Key_Home, "name 1"},   {Qt::Key_PageDown, "name 10"},
        {Qt::Key_PageDown, "name 20"}, {Qt::Key_Down, "name 20"},  {Qt::Key_Right, "name 20"},
        {Qt::Key_PageUp, "name 11"},   {Qt::Key_PageUp, "name 1"}, {Qt::Key_End, "name 20"},
        {Qt::Key_Left, "button 20"},   {Qt::Key_Left, "ring 20"},  {Qt::Key_Left, "name 10"},
        {Qt::Key_Left, "button 10"},   {Qt::Key_Left, "ring 10"},  {Qt::Key_Left, "ring 10"},
        {Qt::Key_Up, "button 3"},
    };
    for (const auto& [key, reached] : walk) {
        press(key);
        EXPECT_EQ(at(), reached) << QKeySequence(key).toString().toStdString();
    }
    EXPECT_THAT(pickedUp(), ElementsAre());
    EXPECT_EQ(importGrid->focused(), &importRow(3));

    click(*importRow(3).field());  // in a name they are the editor's
    takeCalls();
    press(Qt::Key_Down);
    press(Qt::Key_Home);
    EXPECT_TRUE(editor.hasFocus());
    EXPECT_EQ(importGrid->focused(), &importRow(3));
    press(Qt::Key_Return);
    press(Qt::Key_Down);
    EXPECT_EQ(at(), "name 10");
}

TEST_F(Grid, ShiftPicksUpARangeAndPutsBackOnlyWhatItPickedUp) {
    importRow(14).button()->click();
    importRow(3).button()->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_THAT(pickedUp(), ElementsAre(3, 10, 14));
    press(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_THAT(pickedUp(), ElementsAre(3, 10, 11, 14, 20));
    importRow(11).setCustomImportName("riff");
    press(Qt::Key_Home, Qt::ShiftModifier);
    EXPECT_THAT(pickedUp(), ElementsAre(1, 3, 11, 14)) << "11 has a name by now, 14 was there before";
    EXPECT_EQ(at(), "button 1");
    press(Qt::Key_Down);
    press(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_THAT(pickedUp(), ElementsAre(1, 3, 10, 11, 14)) << "up to the nearest beside it, 14";
    EXPECT_EQ(at(), "button 14");

    exportRow(2).button()->setFocus(Qt::TabFocusReason);
    takeCalls();
    press(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget(), exportRow(20).button());
    EXPECT_THAT(takeCalls(), ElementsAre());
}

TEST_F(Grid, TabStopsOnceAtTheRowThatWasUsedLast) {
    const auto stops = [this] {
        std::vector<const QWidget*> found;
        for (const auto& row : importSlots) {
            for (const QWidget* part :
                 std::initializer_list<QWidget*>{row->ring(), row->button(), row->field()}) {
                if ((part->focusPolicy() & Qt::TabFocus) != 0) {
                    found.push_back(part);
                }
            }
        }
        return found;
    };
    EXPECT_THAT(stops(), ElementsAre(importRow(1).button()));
    importRow(1).button()->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Right);
    press(Qt::Key_Down);
    EXPECT_THAT(stops(), ElementsAre(importRow(3).field()));
    click(*importRow(14).button());
    EXPECT_THAT(stops(), ElementsAre(importRow(14).button()));
    setOccupied(importRow(14), false);
    EXPECT_THAT(stops(), ElementsAre(importRow(20).button()));
    setOccupied(importRow(20), false);
    EXPECT_THAT(stops(), ElementsAre(importRow(11).button()));
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), exportRow(1).button());
}

}  // namespace
}  // namespace kzq::test
