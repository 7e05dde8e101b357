#include <QAccessible>

#include "row_fixture.h"
#include "slots/slot_field_esc.h"

namespace kzq::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

class Editing : public RowFixture {};

TEST_F(Editing, AClickOnANameSelectsTheRowAndOpensIt) {
    auto& row = recorded(2);
    takeCalls();
    click(*row.field());
    EXPECT_THAT(takeCalls(), ElementsAre("closeMenu", "on import 2", "began import 2"));
    EXPECT_TRUE(editor.hasFocus());
    EXPECT_EQ(editor.textCursor().selectedText(), "Loop 2");
    EXPECT_EQ(Slot::currentImportSlotInEditingMode(), 2);
    row.endEditing();
    click(*row.field());  // selected already, and named as the last one edited
    EXPECT_THAT(takeCalls(), ElementsAre("began import 2"));
    EXPECT_TRUE(row.field()->isEditable());

    click(*importRow(1).field());  // an empty row
    QTest::mousePress(row.field(), Qt::LeftButton);
    QTest::mouseRelease(row.field(), Qt::LeftButton, {}, {300, 5});
    EXPECT_THAT(takeCalls(), ElementsAre());
}

TEST_F(Editing, EndsAndKeepsTheTrimmedNameByEveryRoad) {
    auto& row = recorded(1);
    const std::vector<std::pair<const char*, std::function<void()>>> roads = {
        {"Return", [&] { QTest::keyClick(&editor, Qt::Key_Return); }},
        {"Escape", [&] { QTest::keyClick(&editor, Qt::Key_Escape); }},
        {"focus", [&] { window.setFocus(Qt::MouseFocusReason); }},
        {"Tab", [&] { QTest::keyClick(&editor, Qt::Key_Tab); }},
        {"not editable", [&] { row.field()->setEditable(false); }},
        {"endEditing", [&] { row.endEditing(); }},
    };
    for (const auto& [road, end] : roads) {
        SCOPED_TRACE(road);
        click(*row.field());
        ASSERT_TRUE(editor.hasFocus());
        type(QString(" \t%1  ").arg(road));
        end();
        EXPECT_FALSE(row.field()->isEditable());
        EXPECT_EQ(row.field()->currentEditor(), nullptr);
        EXPECT_EQ(row.customImportName(), road);
        EXPECT_EQ(fieldText(row), road);
    }
    click(*row.field());
    type("   ");
    for (const auto reason : {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
        QFocusEvent away(QEvent::FocusOut, reason);
        QApplication::sendEvent(&editor, &away);
        EXPECT_TRUE(row.field()->isEditable());  // its own menu, or a look into another window
    }
    row.endEditing();
    EXPECT_EQ(row.customImportName(), std::nullopt);
    EXPECT_EQ(fieldText(row), "Loop 1");
    EXPECT_THAT(calls, Not(Contains("ended import 1")));
}

TEST_F(Editing, EscapeLeavesRowsAloneThatAreNotEdited) {
    recorded(2);
    recorded(3).setCustomImportName("kept");
    click(*importRow(2).field());
    type("new");
    SlotFieldEsc::centre().post();
    EXPECT_EQ(fieldText(importRow(1)), "");
    EXPECT_EQ(importRow(1).customImportName(), std::nullopt);
    EXPECT_EQ(fieldText(exportRow(1)), "");
    EXPECT_EQ(importRow(2).customImportName(), "new");
    EXPECT_EQ(importRow(3).customImportName(), "kept");

    click(*importRow(3).field());
    QTest::keyPress(&editor, Qt::Key_Escape);
    EXPECT_TRUE(importRow(3).field()->isEditable());
    QTest::keyRelease(&editor, Qt::Key_Escape);
    EXPECT_FALSE(importRow(3).field()->isEditable());
}

TEST_F(Editing, OneRowOfAListIsEditedAtATime) {
    auto& first = recorded(1);
    auto& second = recorded(2);
    click(*first.field());
    type("one");
    click(*second.field());
    EXPECT_EQ(first.customImportName(), "one");
    EXPECT_FALSE(first.field()->isEditable());
    EXPECT_EQ(editor.field(), second.field());
    EXPECT_EQ(fieldText(second), "Loop 2");
    second.endEditing();
    setOccupied(second, false);
    click(*first.field());  // the row recorded last is empty by now, and stays so
    EXPECT_EQ(fieldText(second), "");

    const auto before = Slot::currentImportSlotInEditingMode();
    stage(exportRow(3), "/x/riff.wav");
    takeCalls();
    exportRow(3).field()->setEditable(true);
    EXPECT_THAT(takeCalls(), ElementsAre("began export 3"));
    EXPECT_EQ(Slot::currentExportSlotInEditingMode(), 3);
    EXPECT_EQ(Slot::currentImportSlotInEditingMode(), before);
}

TEST_F(Editing, TheKeyboardReachesTheNameAndComesBackToIt) {
    auto& row = recorded(1);
    row.button()->setFocus(Qt::TabFocusReason);
    QTest::keyClick(row.button(), Qt::Key_Tab);
    ASSERT_TRUE(row.field()->hasFocus());
    QTest::keyClick(row.field(), Qt::Key_F2);
    ASSERT_TRUE(editor.hasFocus());
    QTest::keyClick(&editor, Qt::Key_Escape);
    EXPECT_TRUE(row.field()->hasFocus());
    auto* const told = QAccessible::queryAccessibleInterface(row.field());
    told->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(editor.hasFocus());
    row.endEditing();
    recorded(3);
    QTest::keyClick(row.field(), Qt::Key_F2);
    QTest::keyClick(&editor, Qt::Key_Tab);
    EXPECT_TRUE(exportRow(1).button()->hasFocus());  // the next control in the window, not the first
}

TEST_F(Editing, TheEditorOutlivesTheRow) {
    click(*recorded(1).field());
    delete importRow(1).view();
    EXPECT_EQ(editor.parent(), nullptr);
    for (auto* const row : {&importRow(1), &exportRow(1)}) {
        delete row->view();
        setOccupied(*row, true);
        row->setEnabled(true);
        row->setSelected(false);
        row->setExporting(QUrl::fromLocalFile("/x/riff.wav"));
        row->setExported(true);
        row->endEditing();
        EXPECT_FALSE(row->selected());
    }
    importSlots[0].reset();
}

}  // namespace
}  // namespace kzq::test
