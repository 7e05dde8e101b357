#include <QClipboard>

#include "row_fixture.h"

namespace kzq::test {
namespace {

class Editor : public RowFixture {};

TEST_F(Editor, KeepsOneLineWhateverIsPutIn) {
    auto& row = recorded(1);
    click(*row.field());
    QApplication::clipboard()->setText(QString("a\r\nb\nc\u2029d"));
    QTest::keyClick(&editor, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(editor.text(), "a b c d");
    editor.selectAll();
    QApplication::clipboard()->setText(QString("a\tb\vc\ufdd0d\u0085e"));
    editor.paste();
    EXPECT_EQ(editor.text(), "a b c d e");
    QTest::keyClick(&editor, Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(&editor, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(editor.text(), "Loop 1");
    editor.selectAll();
    QInputMethodEvent composed;
    composed.setCommitString("x\ny");
    QApplication::sendEvent(&editor, &composed);
    EXPECT_EQ(editor.text(), "x y");
    QTest::keyClick(&editor, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(row.customImportName(), "x y");

    auto& other = recorded(2);
    click(*other.field());
    QTest::keyClick(&editor, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(editor.text(), "Loop 2");  // what another row's name was is not brought back here
}

}  // namespace
}  // namespace kzq::test
