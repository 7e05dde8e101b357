#include "row_fixture.h"

namespace kzq::test {
namespace {

using testing::ElementsAre;

class ExportRow : public RowFixture {};

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
    onButton = [](Slot& slot) { stage(slot, "/x/other.mp3"); };
    click(*row.button());
    EXPECT_EQ(fieldText(row), "other");
    onButton = [](Slot&) {};  // and when no file was chosen, the row shows again what it holds
    click(*row.button());
    EXPECT_EQ(fieldText(row), "other");
    takeCalls();
    row.x()->click();
    EXPECT_THAT(takeCalls(), ElementsAre("remove export 3", "removed export 3"));
    EXPECT_EQ(fieldText(row), "");
}

}  // namespace
}  // namespace kzq::test
