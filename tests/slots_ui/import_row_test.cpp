#include <QAccessible>

#include "mouse.h"
#include "row_fixture.h"

namespace kzq::test {
namespace {

using testing::ElementsAre;

class ImportRow : public RowFixture {};

TEST_F(ImportRow, TheCheckboxTurnsByMouseAndKeysAndTellsOnceEach) {
    auto& row = recorded(1);
    auto* const checkbox = row.button();
    EXPECT_EQ(checkbox->accessibleName(), "Loop 1, select");
    auto* const told = QAccessible::queryAccessibleInterface(checkbox);
    EXPECT_EQ(told->role(), QAccessible::CheckBox);
    takeCalls();
    click(*checkbox);
    EXPECT_THAT(takeCalls(), ElementsAre("closeMenu", "on import 1"));
    QTest::keyClick(checkbox, Qt::Key_Space);
    EXPECT_THAT(takeCalls(), ElementsAre("closeMenu", "off import 1"));
    told->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_THAT(takeCalls(), ElementsAre("closeMenu", "on import 1"));
    click(*importRow(2).button());
    EXPECT_THAT(takeCalls(), ElementsAre());
    row.setSelected(true);
    setOccupied(row, false);
    EXPECT_FALSE(row.selected());
}

TEST_F(ImportRow, DeselectingForgetsTheTypedName) {
    auto& row = recorded(1);
    row.setSelected(true);
    row.setCustomImportName("riff");
    EXPECT_EQ(fieldText(row), "riff");
    row.setSelected(false);
    EXPECT_EQ(row.customImportName(), std::nullopt);
    EXPECT_EQ(fieldText(row), "Loop 1");

    click(*row.field());  // and in the middle of typing one
    type("half a na");
    row.button()->click();  // as an assistive program does: the focus stays
    EXPECT_FALSE(row.selected() || row.field()->isEditable());
    EXPECT_EQ(row.customImportName(), std::nullopt);
    EXPECT_EQ(row.background()->image(), "Import_field_Off");
    row.setSelected(true);
    row.refresh();
    EXPECT_EQ(fieldText(row), "Loop 1");
}

TEST_F(ImportRow, EightPixelsMakeADragOfAPressAndSevenAClick) {
    auto& row = recorded(2);
    takeCalls();
    for (QWidget* part : std::initializer_list<QWidget*>{row.button(), row.field(), row.background()}) {
        Mouse mouse(*part);
        mouse.enter();
        const auto lit = row.field()->tint();
        mouse.press();
        mouse.dragBy({0, 7});
        EXPECT_THAT(takeCalls(), ElementsAre());
        mouse.dragBy({-6, 6});
        mouse.dragBy({60, 0});
        EXPECT_THAT(takeCalls(), ElementsAre("drag import 2"));
        EXPECT_EQ(row.field()->tint(), lit) << "not pressed any more";
        mouse.release();
        EXPECT_THAT(takeCalls(), ElementsAre());  // neither selected nor renamed
        mouse.dragBy({60, 0});
        EXPECT_THAT(takeCalls(), ElementsAre());
    }
    Mouse field(*row.field());
    field.press();
    field.dragBy({7, 0});
    field.release();
    EXPECT_THAT(takeCalls(), ElementsAre("closeMenu", "on import 2", "began import 2"));
    Mouse empty(*importRow(1).view());
    empty.press();
    empty.dragBy({60, 0});
    EXPECT_THAT(takeCalls(), ElementsAre());
}

}  // namespace
}  // namespace kzq::test
