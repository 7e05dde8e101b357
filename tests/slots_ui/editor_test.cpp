#include <QClipboard>

#include "row_fixture.h"
#include "ui/palette.h"

namespace kzq::test {
namespace {

class Editor : public RowFixture {
  protected:
    /// The row over a background of one colour, so that the editor's drawing can be recognised.
    QImage shown(const QColor& ground) {
        QImage image(editor.size(), QImage::Format_RGB32);
        image.fill(ground);
        editor.render(&image, {}, {}, QWidget::DrawChildren);
        return image;
    }
};

/// First and last y of a column with this colour; -1 for none.
std::pair<int, int> extent(const QImage& image, int x, const QColor& colour) {
    std::pair<int, int> found{-1, -1};
    for (int y = 0; y < image.height(); ++y) {
        if (image.pixelColor(x, y) == colour) {
            found = {found.first < 0 ? y : found.first, y};
        }
    }
    return found;
}

TEST_F(Editor, DrawsHighlightAndCaretInTheMiddleOfTheRowOverAClearGround) {
    click(*recorded(1).field());
    EXPECT_EQ(editor.size(), QSize(216, 16));
    type("IIII");
    editor.selectAll();
    auto image = shown(Qt::green);
    EXPECT_EQ(extent(image, 0, KZQTextHighlight()), std::pair(2, 13));
    const auto caret = editor.cursorRect().x();
    EXPECT_EQ(extent(image, caret, Qt::black), std::pair(3, 14));
    EXPECT_EQ(extent(image, caret + 1, Qt::green), std::pair(0, 15));
    auto inSelection = editor.textCursor();
    inSelection.setPosition(0);
    editor.setTextCursor(inSelection);
    image = shown(Qt::green);
    EXPECT_EQ(extent(image, 0, Qt::black), std::pair(3, 14));
    EXPECT_EQ(extent(image, 0, KZQTextHighlight()), std::pair(-1, -1));
    int foot = 0;
    for (int x = 1; x < caret; ++x) {
        foot = std::max(foot, extent(image, x, Qt::black).second);
    }
    EXPECT_EQ(foot, 11);  // the letters stand on the line at y 12
}

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
    QTest::keyClick(&editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&editor, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "Loop 1");
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

TEST_F(Editor, ALongNameScrollsToTheCaretAndAClickFindsItsPlace) {
    click(*recorded(1).field());
    QTest::keyClicks(&editor, QString(60, 'W'));
    EXPECT_LE(editor.cursorRect().right(), 216);
    EXPECT_GT(editor.cursorRect().x(), 200);
    type("iW");
    const auto w = editor.cursorRect().x();
    QTest::mouseClick(editor.viewport(), Qt::LeftButton, {}, {0, 8});
    EXPECT_EQ(editor.textCursor().position(), 0);
    QTest::mouseClick(editor.viewport(), Qt::LeftButton, {}, {w - 1, 8});
    EXPECT_EQ(editor.textCursor().position(), 2);
    QTest::mouseClick(editor.viewport(), Qt::LeftButton, {}, {200, 8});
    EXPECT_EQ(editor.textCursor().position(), 2);
}

}  // namespace
}  // namespace kzq::test
