#include <gtest/gtest.h>

#include <QApplication>
#include <QDragEnterEvent>
#include <QFontInfo>
#include <QLineEdit>
#include <QMimeData>
#include <QPixmapCache>
#include <QRawFont>
#include <QShortcut>
#include <QTest>
#include <QWheelEvent>

#include "ui/background.h"
#include "ui/focus_ring.h"
#include "ui/fonts.h"
#include "ui/lower_button.h"
#include "ui/picture_view.h"
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

struct Page : QWidget {
    Page() {
        for (auto* button : {&first, &second}) {
            button->setGeometry(button == &first ? 20 : 160, 20, 112, 40);
        }
        plain.setGeometry(20, 80, 60, 20);
        resize(300, 120);
        show();
        QApplication::setActiveWindow(this);
    }
    LowerButton first = LowerButton(this);
    LowerButton second = LowerButton(this);
    QLineEdit plain = QLineEdit(this);
    FocusRing ring = FocusRing(this);
};

TEST(FocusRing, ShowsOnlyForAFocusByKeyboard) {
    Page page;
    page.first.setFocus(Qt::MouseFocusReason);
    EXPECT_FALSE(page.ring.isVisible());
    page.second.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(page.ring.control(), &page.second);
    EXPECT_EQ(page.ring.geometry(), page.second.geometry().adjusted(-4, -4, 4, 4));
    page.second.hide();
    EXPECT_FALSE(page.ring.isVisible());
    page.plain.setFocus(Qt::TabFocusReason);
    EXPECT_FALSE(page.ring.isVisible()) << "no ring is asked for";
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

TEST(Fonts, AreReallyFiraSans) {
    EXPECT_EQ(QRawFont::fromFont(textFont()).familyName(), "Fira Sans");
    const auto light = firaSans(FiraWeight::light, 13);
    ASSERT_TRUE(light);
    EXPECT_EQ(QRawFont::fromFont(*light).styleName(), "Light");
    EXPECT_EQ(QFontInfo(*light).pixelSize(), 13);
    if (const auto medium = firaSans(FiraWeight::medium, 15)) {
        EXPECT_EQ(QRawFont::fromFont(*medium).styleName(), "Medium") << "a stand-in is not it";
    }
}

}  // namespace
}  // namespace kzq
