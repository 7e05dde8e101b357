#include "app/application.h"

#include <gmock/gmock.h>

#include <QTest>
#include <QWidget>
#include <QWindow>

#include "ui/alert_button.h"
#include "ui/alert_panel.h"
#include "ui/qt_dialogs.h"
#include "virtual_executor.h"

namespace kzq::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::chrono_literals;

/// A menu that takes up the left half of one window.
struct FakeDelegate : ApplicationDelegate {
    bool menuOpen() const override { return open; }
    bool pointInMenuBounds(QPoint point) const override { return point.x() < 50; }
    bool isMainWindow(const QWindow& window) const override { return &window == mainWindow; }
    void menuUp() override { done.emplace_back("up"); }
    void menuDown() override { done.emplace_back("down"); }
    void menuGo() override { done.emplace_back("go"); }
    void closeMenu() override { done.emplace_back("close"); }

    bool open = true;
    const QWindow* mainWindow = nullptr;
    std::vector<std::string> done;
};

class ApplicationTest : public testing::Test {
  protected:
    ApplicationTest() {
        window.show();
        delegate.mainWindow = window.windowHandle();
        application().setDelegate(&delegate);
    }
    ~ApplicationTest() override { application().setDelegate(nullptr); }

    static Application& application() { return *static_cast<Application*>(qApp); }
    std::vector<std::string> done() { return std::exchange(delegate.done, {}); }

    QWidget window;
    FakeDelegate delegate;
};

/// Keys that are held on a machine too busy for the toolkit to see that they repeat.
class HeldKeys : public ApplicationTest {
  protected:
    HeldKeys() { application().setKeyGuard(&keys); }
    ~HeldKeys() override { application().setKeyGuard(nullptr); }

    void send(QWindow& to, QEvent::Type type, Qt::Key key, bool flagged = false) {
        QKeyEvent event(type, key, {}, {}, flagged);
        event.setTimestamp(static_cast<quint64>(executor.elapsed() / 1ms));
        QCoreApplication::sendEvent(&to, &event);
    }
    void press(QWindow& to, Qt::Key key) { send(to, QEvent::KeyPress, key); }
    void release(QWindow& to, Qt::Key key) { send(to, QEvent::KeyRelease, key); }
    /// From half a second after its press on. Sometimes the toolkit sees it at the release.
    void repeat(QWindow& to, Qt::Key key) {
        executor.advance(470ms);
        for (int i = 0; i < 20; ++i) {
            executor.advance(30ms);
            send(to, QEvent::KeyRelease, key, i % 2 == 1);
            executor.advance(7ms);
            press(to, key);
        }
    }

    VirtualExecutor executor;
    KeyGuard keys = KeyGuard(executor);
};

TEST_F(HeldKeys, ActOnceInTheMenuWhenTheyAreLetGo) {
    auto& menu = *window.windowHandle();
    press(menu, Qt::Key_Down);
    repeat(menu, Qt::Key_Down);
    EXPECT_THAT(done(), IsEmpty());
    release(menu, Qt::Key_Down);
    executor.advance(40ms);
    EXPECT_THAT(done(), ElementsAre("down"));
    for (int tap = 0; tap < 2; ++tap) {  // as fast as no finger is
        press(menu, Qt::Key_Down);
        executor.advance(5ms);
        release(menu, Qt::Key_Down);
    }
    EXPECT_THAT(done(), ElementsAre("down", "down"));
    press(menu, Qt::Key_Down);
    executor.advance(1s);
    release(menu, Qt::Key_Down);
    press(menu, Qt::Key_Up);  // what was let go before comes before
    release(menu, Qt::Key_Up);
    EXPECT_THAT(done(), ElementsAre("down", "up"));
}

TEST_F(HeldKeys, DoNotAnswerTheQuestionThatTheyRaised) {
    delegate.open = false;
    QtDialogs dialogs(keys, [] { return nullptr; });
    AlertButton erase(&window);
    erase.show();
    erase.setFocus();
    std::vector<int> answers;
    QObject::connect(&erase, &AlertButton::clicked,
                     [&] { answers.push_back(dialogs.run(yesOrNoAlertWithHeadline("Erase?"))); });
    const auto whileAsked = [&](const std::function<void(QWindow&)>& act) {
        QMetaObject::invokeMethod(
            qApp,
            [&, act] {
                auto& panel = dynamic_cast<AlertPanel&>(*QApplication::activeModalWidget());
                ASSERT_TRUE(QTest::qWaitForWindowExposed(&panel));
                panel.repaint();
                act(*panel.windowHandle());
                panel.close();
            },
            Qt::QueuedConnection);
    };
    auto& button = *window.windowHandle();
    whileAsked([&](QWindow& alert) {
        repeat(alert, Qt::Key_Return);
        release(alert, Qt::Key_Return);
        executor.advance(40ms);
        EXPECT_TRUE(alert.isVisible());
        press(alert, Qt::Key_Return);
    });
    press(button, Qt::Key_Return);
    release(button, Qt::Key_Return);
    press(button, Qt::Key_Space);
    repeat(button, Qt::Key_Space);
    EXPECT_EQ(answers.size(), 1U);
    whileAsked([&](QWindow& alert) {
        executor.advance(400ms);
        press(alert, Qt::Key_Return);
    });
    release(button, Qt::Key_Space);
    executor.advance(40ms);
    EXPECT_EQ(answers.size(), 2U);
    whileAsked([&](QWindow& alert) {
        executor.advance(399ms);
        for (const auto key : {Qt::Key_Return, Qt::Key_Escape}) {  // meant for something else
            press(alert, key);
            release(alert, key);
        }
        EXPECT_TRUE(alert.isVisible());
        executor.advance(1ms);
        press(alert, Qt::Key_Escape);
    });
    erase.click();
    EXPECT_THAT(answers, ElementsAre(alertSecondButton, alertSecondButton, alertThirdButton));
    for (const bool another : {true, false}) {  // key since then, or a long silence
        whileAsked([&](QWindow& alert) {        // Return was let go while the alert came up, seen by nobody
            executor.advance(another ? 400ms : 2001ms);
            if (another) {
                press(alert, Qt::Key_Tab);
                release(alert, Qt::Key_Tab);
            }
            press(alert, Qt::Key_Return);
        });
        press(button, Qt::Key_Return);
        release(button, Qt::Key_Return);
    }
    EXPECT_THAT(answers, ElementsAre(alertSecondButton, alertSecondButton, alertThirdButton, alertFirstButton,
                                     alertSecondButton));
}

}  // namespace

}  // namespace kzq::test
