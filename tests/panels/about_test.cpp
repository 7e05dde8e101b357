#include "ui/panels/about.h"

#include <gmock/gmock.h>

#include <QPainter>
#include <QTest>
#include <QWindow>

#include "fakes.h"
#include "ui/fonts.h"
#include "ui/panels/about_backing.h"
#include "ui/panels/about_window.h"
#include "ui/pictures.h"
#include "virtual_executor.h"

namespace kzq {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

class AboutTest : public testing::Test {
  protected:
    AboutTest() {
        registerFonts();
        About::rearmSplash();
        make("2.1.0");
    }

    void make(const char* version) {
        about = About::about(controller, executor, dialogs, [this] { return firmware; },
                             {version, "https://www.kzq.example/"});
        backing = about->window().findChild<AboutBacking*>();
        link = about->window().findChild<LinkButton*>();
    }
    void key(QEvent::Type type, int key, bool repeated = false) {
        QKeyEvent event(type, key, Qt::NoModifier, QString(), repeated);
        QCoreApplication::sendEvent(backing, &event);
    }

    test::Calls calls;
    test::FakeController controller{calls};
    test::FakeDialogs dialogs{calls};
    test::VirtualExecutor executor;
    std::optional<std::string> firmware;
    std::unique_ptr<About> about;
    AboutBacking* backing = nullptr;
    LinkButton* link = nullptr;
};

TEST_F(AboutTest, TheFirstShowingOfAProcessClosesByItself) {
    about->showWindow();
    executor.advance(1499ms);
    EXPECT_TRUE(about->isVisible());
    executor.advance(1ms);
    EXPECT_FALSE(about->isVisible());
    EXPECT_THAT(calls, ElementsAre("main window"));

    make("2.1.0");
    about->showWindow();
    executor.advance(1h);
    EXPECT_TRUE(about->isVisible()) << "shown a second time";
}

TEST_F(AboutTest, EveryWayOfClosingOpensTheMainWindowOnce) {
    QWidget other;
    const std::function<void()> ways[] = {
        [this] { key(QEvent::KeyRelease, Qt::Key_Return); },
        [this] { key(QEvent::KeyRelease, Qt::Key_Escape); },
        [this] { QTest::keyClick(link, Qt::Key_Escape); },
        [this] { QTest::mousePress(backing, Qt::LeftButton, {}, QPoint(100, 100)); },
        [this] { about->window().windowHandle()->close(); },
        [&other] {
            other.show();
            other.activateWindow();
            ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
        },
    };
    for (const auto& way : ways) {
        calls.clear();
        about->showWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&about->window()));
        way();
        QCoreApplication::processEvents();
        EXPECT_FALSE(about->isVisible()) << &way - ways;
        EXPECT_THAT(calls, ElementsAre("main window")) << &way - ways;
    }
}

TEST_F(AboutTest, TheWindowHasThePixelsOfItsPictureAndNoOthers) {
    about->showWindow();
    const auto mask = about->window().mask();
    QImage seen(about->window().size(), QImage::Format_ARGB32);
    seen.fill(Qt::transparent);
    QPainter painter(&seen);
    drawPicture(painter, "About", seen.rect());
    int clear = 0;
    for (int y = 0; y < seen.height(); ++y) {
        for (int x = 0; x < seen.width(); ++x) {
            const bool within = mask.contains(QPoint(x, y));
            EXPECT_TRUE(within || qAlpha(seen.pixel(x, y)) == 0) << x << ' ' << y;
            clear += within && qAlpha(seen.pixel(x, y)) == 0 ? 1 : 0;
        }
    }
    EXPECT_LE(clear, 40) << "of about 500 in the corners";
}

TEST_F(AboutTest, TheKeyThatOpenedItDoesNotCloseItWhenItIsLetGo) {
    QWidget menuBar;
    QTest::keyPress(&menuBar, Qt::Key_Return);
    about->showWindow();
    key(QEvent::KeyRelease, Qt::Key_Return);
    EXPECT_TRUE(about->isVisible());
    key(QEvent::KeyPress, Qt::Key_Return);
    EXPECT_TRUE(about->isVisible());
    key(QEvent::KeyRelease, Qt::Key_Return);
    EXPECT_FALSE(about->isVisible());
}

}  // namespace
}  // namespace kzq
