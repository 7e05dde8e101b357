#include <QTextDocumentFragment>
#include <QToolTip>

#include "row_fixture.h"

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

TEST_F(Editing, TheToolTipOfANameHasWhatIsCut) {
    auto& row = recorded(1);
    const auto toolTip = [&row] {
        QHelpEvent event(QEvent::ToolTip, {4, 4}, row.field()->mapToGlobal(QPoint(4, 4)));
        QApplication::sendEvent(row.field(), &event);
        const auto text = QToolTip::text();
        QToolTip::hideText();
        return QTextDocumentFragment::fromHtml(text).toPlainText().toStdString();
    };
    EXPECT_EQ(toolTip(), "");
    const std::string whole = "<b>a</b> name that is longer than its row, however it is written";
    row.field()->setText(QString::fromStdString(whole));
    EXPECT_EQ(toolTip(), whole);
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
    importGrid.reset();
    importSlots[0].reset();
}

}  // namespace
}  // namespace kzq::test
