#include <QAccessible>

#include "row_fixture.h"
#include "ui/palette.h"

namespace kzq::test {
namespace {

using testing::ElementsAre;

class ExportRow : public RowFixture {};

TEST_F(ExportRow, ShowsEveryStateOfStagedWrittenAndOccupied) {
    struct Case {
        bool staged, written, occupied;
        const char *text, *field, *button, *toolTip, *accessibleName;
        QColor colour;
    };
    const auto resting = restingTextColor();
    const std::vector<Case> cases = {
        {false, false, false, "", "Off", "Empty", "Add Loop", "Add Loop 2", resting},
        {false, false, true, "Loop 2", "Off", "Filled", "Overwrite Loop", "Overwrite Loop 2", resting},
        {true, false, false, "verse.1", "On", "On", "Add Loop", "Add Loop 2", KZQWhite()},
        {true, false, true, "verse.1", "overwrite", "Overwrite", "Overwrite Loop", "Overwrite Loop 2",
         KZQYellow()},
        {true, true, false, "complete", "Off", "On", "Add Loop", "Add Loop 2", resting},
        {true, true, true, "complete", "Off", "Overwrite", "Overwrite Loop", "Overwrite Loop 2", resting},
        {false, false, true, "Loop 2", "Off", "Filled", "Overwrite Loop", "Overwrite Loop 2", resting},
    };
    auto& row = exportRow(2);
    for (const auto& state : cases) {
        SCOPED_TRACE(std::string(state.field) + " " + state.button);
        row.setOccupied(state.occupied);
        row.setExporting(state.staged ? std::optional(QUrl::fromLocalFile("/tmp/a b/verse.1.wav"))
                                      : std::nullopt);
        row.setExported(state.written);
        EXPECT_EQ(fieldText(row), state.text);
        EXPECT_EQ(row.background()->image(), QString("Export_field_") + state.field);
        EXPECT_EQ(row.button()->image(), QString("Export_Add_") + state.button);
        EXPECT_EQ(row.button()->toolTip(), state.toolTip);
        EXPECT_EQ(row.button()->accessibleName(), state.accessibleName);
        EXPECT_EQ(row.field()->textColour(), state.colour);
        const bool x = state.staged && !state.written;
        EXPECT_EQ(row.x()->isVisible(), x);
        EXPECT_EQ(row.field()->geometry(), x ? QRect(91, 6, 201, 16) : QRect(76, 6, 216, 16));
    }
}

TEST_F(ExportRow, NamesAFileWithoutItsExtension) {
    auto& row = exportRow(1);
    EXPECT_EQ(row.name(), std::nullopt);
    EXPECT_EQ(row.nameOfExport(), std::nullopt);
    for (const auto& [path, name] : {std::pair{"/a.b/riff", "riff"},
                                     {"/x/.wav", ".wav"},
                                     {"/x/50% #1?.flac", "50% #1?"},
                                     {"/x/Übung.aif", "Übung"}}) {
        stage(row, path);
        EXPECT_EQ(fieldText(row), name);
    }
}

TEST_F(ExportRow, TheAddButtonResetsTheFieldBeforeTheActionAndIsNeverOn) {
    auto& row = exportRow(3);
    stage(row, "/x/riff.wav");
    std::string shownAtAction;
    onButton = [&](Slot& slot) { shownAtAction = fieldText(slot); };
    takeCalls();
    row.button()->setState(1);
    click(*row.button());
    EXPECT_EQ(shownAtAction, "Loop 3");
    EXPECT_THAT(takeCalls(), ElementsAre("closeMenu", "add export 3"));
    EXPECT_FALSE(row.selected());
    for (const auto key : {Qt::Key_Space, Qt::Key_Return}) {
        QTest::keyClick(row.button(), key);
        EXPECT_THAT(takeCalls(), ElementsAre("closeMenu", "add export 3"));
    }
    onButton = [this](Slot& slot) { stage(slot, "/x/other.mp3"); };
    click(*row.button());
    EXPECT_EQ(fieldText(row), "other");
    EXPECT_EQ(row.button()->image(), "Export_Add_On");
    EXPECT_EQ(row.button()->accessibleDescription(), "other");
    onButton = nullptr;  // and when no file was chosen, the row shows again what it holds
    click(*row.button());
    EXPECT_EQ(fieldText(row), "other");
    click(*exportRow(1).button());
    EXPECT_EQ(fieldText(exportRow(1)), "");
}

TEST_F(ExportRow, TheXTellsBeforeAndAfterAndHandsTheFocusToTheButton) {
    auto& row = exportRow(2);
    setOccupied(row, true);
    stage(row, "/x/riff.wav");
    row.x()->setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(row.x()->hasFocus());
    EXPECT_EQ(row.x()->accessibleName(), "Remove file from loop 2");
    takeCalls();
    QTest::keyClick(row.x(), Qt::Key_Space);
    EXPECT_THAT(takeCalls(), ElementsAre("about to remove export 2", "removed export 2"));
    EXPECT_EQ(fieldText(row), "Loop 2");
    EXPECT_TRUE(row.button()->hasFocus());
}

TEST_F(ExportRow, AReleasedRowLeavesAViewThatCallsNobody) {
    auto& row = exportRow(1);
    stage(row, "/x/riff.wav");
    auto* const view = row.view();
    auto* const button = row.button();
    auto* const x = row.x();
    row.field()->setEditable(true);
    ASSERT_NE(row.field()->currentEditor(), nullptr);
    takeCalls();
    exportSlots[0].reset();
    EXPECT_EQ(editor.field(), nullptr);
    EXPECT_EQ(editor.parent(), nullptr);
    EXPECT_FALSE(view->acceptDrops() || button->acceptDrops());
    click(*button);
    click(*x);
    view->grab();
    EXPECT_THAT(takeCalls(), ElementsAre());

    auto own = Slot::slotNumber(20, Slot::exportContext, *this, nullptr);
    const QPointer<SlotView> ownView = own->view();
    own.reset();
    EXPECT_EQ(ownView, nullptr);
}

}  // namespace
}  // namespace kzq::test
