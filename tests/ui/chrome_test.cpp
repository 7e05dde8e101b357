#include <gmock/gmock.h>

#include <QAccessible>
#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QPixmapCache>
#include <QShortcut>
#include <QTest>
#include <QWheelEvent>

#include "mouse.h"
#include "ui/cut_text.h"
#include "ui/fonts.h"
#include "ui/handle_scroll_bar.h"
#include "ui/lower_button.h"
#include "ui/pictures.h"
#include "ui/shield.h"
#include "ui/window.h"

namespace kzq {
namespace {

/// Counts what it is sent.
class Witness : public QWidget {
  public:
    explicit Witness(QWidget* parent) : QWidget(parent) {
        setAcceptDrops(true);
        setFocusPolicy(Qt::StrongFocus);
    }
    int events = 0;

  protected:
    bool event(QEvent* event) override {
        switch (event->type()) {
            case QEvent::MouseButtonPress:
            case QEvent::MouseButtonRelease:
            case QEvent::KeyPress:
            case QEvent::Wheel:
            case QEvent::DragEnter:
                ++events;
                event->accept();
                return true;
            default:
                return QWidget::event(event);
        }
    }
};

/// What the source of a drag is told about it.
Qt::DropAction sendEverything(QWidget& window, QPoint at) {
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, at);
    QTest::keyClick(window.windowHandle(), Qt::Key_A);
    QTest::keyClick(window.windowHandle(), Qt::Key_Tab);
    const QMimeData files;
    auto* target = window.childAt(at);
    QDragEnterEvent drag(target->mapFrom(&window, at), Qt::CopyAction, &files, Qt::LeftButton, {});
    QApplication::sendEvent(target, &drag);
    QWheelEvent wheel(at, at, {0, 10}, {0, 120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(target, &wheel);
    return drag.dropAction();
}

TEST(Shield, LetsNothingThroughAndGivesTheFocusBack) {
    Witness window(nullptr);
    window.resize(200, 100);
    Witness inner(&window);
    inner.setGeometry(0, 0, 200, 100);
    window.show();
    QApplication::setActiveWindow(&window);
    inner.setFocus();
    int shortcuts = 0;
    for (const auto* keys : {"Ctrl+A", "Ctrl+Q"}) {
        QObject::connect(new QShortcut(QKeySequence(keys), &window), &QShortcut::activated,
                         [&] { ++shortcuts; });
    }
    sendEverything(window, {50, 50});
    EXPECT_EQ(inner.events, 6) << "the events do reach a view without the shield";
    inner.events = 0;
    {
        const Shield shield(&window);
        window.resize(300, 200);
        inner.resize(300, 200);
        const Witness late(&window);
        EXPECT_EQ(sendEverything(window, {250, 150}), Qt::IgnoreAction);
        EXPECT_TRUE(shield.hasFocus());
        EXPECT_FALSE(shield.accessibleName().isEmpty()) << "it is what a screen reader stands on";
        QTest::keyClick(window.windowHandle(), Qt::Key_A, Qt::ControlModifier);
        EXPECT_EQ(shortcuts, 0);
        QTest::keyClick(window.windowHandle(), Qt::Key_Q, Qt::ControlModifier);
        EXPECT_EQ(shortcuts, 1);
        EXPECT_EQ(inner.events + late.events + window.events, 0);
    }
    EXPECT_TRUE(inner.hasFocus());
}

TEST(CutText, IsCutWhereItIsReadLastAndTheMarkStandsThere) {
    const QString song = u"\u05E9\u05DC\u05D5\u05DD \u05E9\u05DC\u05D5\u05DD \u05E9\u05DC\u05D5\u05DD"_qs;
    const struct {
        QString text;
        Qt::LayoutDirection within;
        QString end;
    } rows[] = {
        {"The whole rehearsal, slow", Qt::LeftToRight, u"\u2026"_qs},
        {song, Qt::RightToLeft, u"\u2026"_qs},
        {song, Qt::LeftToRight, u"\u2026\u200F"_qs},
        {"2, " + song, Qt::LeftToRight, u"\u2026\u200F"_qs},
        {song + " once more and again", Qt::RightToLeft, u"\u2026\u200E"_qs},
    };
    const QFontMetricsF metrics(textFont());
    for (const auto& row : rows) {
        const auto whole = metrics.horizontalAdvance(row.text);
        EXPECT_EQ(cutText(row.text, metrics, whole + 1, row.within), row.text);
        auto cut = cutText(row.text, metrics, whole * 0.8, row.within);
        ASSERT_TRUE(cut.endsWith(row.end)) << cut.toStdString();
        cut.chop(row.end.size());
        EXPECT_TRUE(row.text.startsWith(cut) && cut.size() > row.text.size() / 2) << cut.toStdString();
    }
}

TEST(Shield, HidesWhatItCoversFromAssistiveToolsWhichGetItAlone) {
    Window window;
    LowerButton button(&window);
    auto* const told = QAccessible::queryAccessibleInterface(&button);
    auto* const root = QAccessible::queryAccessibleInterface(&window);
    const auto& press = QAccessibleActionInterface::pressAction();
    window.show();
    {
        Shield shield(&window);
        LowerButton stop(&shield);
        EXPECT_EQ(root->childCount(), 1);
        EXPECT_EQ(root->child(0)->object(), &shield);
        EXPECT_TRUE(told->state().disabled && !told->state().focusable);
        EXPECT_THAT(told->actionInterface()->actionNames(), testing::IsEmpty());
        told->actionInterface()->doAction(press);
        told->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
        EXPECT_FALSE(button.hasFocus() || button.isDown());
        EXPECT_FALSE(QAccessible::queryAccessibleInterface(&stop)->state().disabled);
    }
    EXPECT_EQ(root->childCount(), 1);
    EXPECT_EQ(root->child(0)->object(), &button);
    told->actionInterface()->doAction(press);
    EXPECT_TRUE(button.isDown()) << "for a moment, before it acts";
}

TEST(Pictures, AreDrawnForEachSize) {
    const auto drawn = [](double size) {
        QImage sheet(64, 64, QImage::Format_ARGB32_Premultiplied);
        sheet.fill(Qt::transparent);
        QPainter painter(&sheet);
        EXPECT_TRUE(drawPicture(painter, "Export_X", {0, 0, size, size}));
        painter.end();
        return sheet;
    };
    QPixmapCache::clear();
    const auto alone = drawn(64);
    QPixmapCache::clear();
    drawn(16);
    EXPECT_EQ(drawn(64), alone) << "not a small one, stretched";
}

TEST(ScrollBar, FollowsTheHandleAndPagesBesideIt) {
    HandleScrollBar bar(nullptr);
    bar.resize(HandleScrollBar::barWidth, 216);  // 200 of them for the handle
    bar.setRange(0, 0);
    EXPECT_TRUE(bar.handle().isEmpty());
    bar.setRange(0, 300);
    bar.setPageStep(100);
    EXPECT_EQ(bar.handle().height(), 50);
    const int top = bar.handle().top();
    const auto usual = bar.grab().toImage();
    test::Mouse mouse(bar);
    QTest::mousePress(&bar, Qt::LeftButton, {}, {6, top + 10});
    EXPECT_NE(bar.grab().toImage(), usual) << "it shows that it is held";
    mouse.dragBy({2, top + 6.0 + 75});
    EXPECT_EQ(bar.value(), 150);
    mouse.dragBy({2, 1000});
    EXPECT_EQ(bar.value(), 300);
    mouse.release();
    mouse.dragBy({2, 0});
    EXPECT_EQ(bar.value(), 300) << "let go";
    QTest::mouseClick(&bar, Qt::LeftButton, {}, {6, top});
    EXPECT_EQ(bar.value(), 200);
    QTest::mouseClick(&bar, Qt::LeftButton, {}, {6, 210});
    EXPECT_EQ(bar.value(), 300);
}

}  // namespace
}  // namespace kzq
