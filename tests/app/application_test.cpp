#include "app/application.h"

#include <gmock/gmock.h>

#include <QTest>
#include <QWidget>
#include <QWindow>

namespace kzq::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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

/// Counts what reaches it.
struct Receiver : QWidget {
    Receiver() {
        resize(100, 100);
        show();
    }
    bool event(QEvent* event) override {
        switch (event->type()) {
            case QEvent::KeyPress:
                seen.emplace_back("press");
                return true;
            case QEvent::KeyRelease:
                seen.emplace_back("release");
                return true;
            case QEvent::MouseButtonRelease:
                seen.emplace_back("mouse");
                return true;
            default:
                return QWidget::event(event);
        }
    }
    std::vector<std::string> seen;
};

class ApplicationTest : public testing::Test {
  protected:
    ApplicationTest() {
        delegate.mainWindow = window.windowHandle();
        application().setDelegate(&delegate);
    }
    ~ApplicationTest() override { application().setDelegate(nullptr); }
    ApplicationTest(const ApplicationTest&) = delete;
    ApplicationTest& operator=(const ApplicationTest&) = delete;
    ApplicationTest(ApplicationTest&&) = delete;
    ApplicationTest& operator=(ApplicationTest&&) = delete;

    static Application& application() { return *static_cast<Application*>(qApp); }
    static void click(const Receiver& on, QPoint at, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(on.windowHandle(), button, {}, at);
    }
    void key(Qt::Key key) const {
        QTest::keyPress(window.windowHandle(), key);
        QTest::keyRelease(window.windowHandle(), key);
    }
    std::vector<std::string> seen() { return std::exchange(window.seen, {}); }
    std::vector<std::string> done() { return std::exchange(delegate.done, {}); }

    Receiver window;
    FakeDelegate delegate;
};

TEST_F(ApplicationTest, OnlyReleasesOfItsOwnKeysAreUsedUpByAnOpenMenu) {
    for (const auto used : {Qt::Key_Left, Qt::Key_Up, Qt::Key_Right, Qt::Key_Down, Qt::Key_Return,
                            Qt::Key_Enter, Qt::Key_Space, Qt::Key_Escape}) {
        key(used);
        EXPECT_THAT(seen(), ElementsAre("press")) << used;
    }
    EXPECT_THAT(done(), ElementsAre("up", "up", "down", "down", "go", "go", "go", "close"));
    key(Qt::Key_A);
    delegate.open = false;
    key(Qt::Key_Escape);
    EXPECT_THAT(seen(), ElementsAre("press", "release", "press", "release"));
    EXPECT_THAT(done(), IsEmpty());
}

TEST_F(ApplicationTest, AKeyThatIsHeldActsOnceWhenItIsLetGo) {
    for (const bool repeated : {true, true, false}) {
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_Down, {}, {}, repeated);
        QCoreApplication::sendEvent(window.windowHandle(), &release);
    }
    EXPECT_THAT(done(), ElementsAre("down"));
    EXPECT_THAT(seen(), IsEmpty());
}

TEST_F(ApplicationTest, AClickClosesTheMenuUnlessItIsInItAndAlwaysCounts) {
    click(window, {10, 10});
    EXPECT_THAT(done(), IsEmpty());
    click(window, {90, 10});
    EXPECT_THAT(done(), ElementsAre("close"));
    click(window, {90, 10}, Qt::RightButton);
    EXPECT_THAT(done(), IsEmpty());
    EXPECT_EQ(seen().size(), 3U);
    const Receiver other;  // the same place in another window
    click(other, {10, 10});
    EXPECT_THAT(done(), ElementsAre("close"));
    EXPECT_EQ(other.seen.size(), 1U);
    delegate.open = false;
    click(window, {90, 10});
    EXPECT_THAT(done(), IsEmpty());
}

TEST_F(ApplicationTest, WithoutADelegateNothingThatTheUserDoesArrives) {
    application().setDelegate(nullptr);
    key(Qt::Key_A);
    click(window, {10, 10});
    EXPECT_THAT(seen(), IsEmpty());
}

}  // namespace

}  // namespace kzq::test
