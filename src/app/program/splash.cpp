#include "app/program/splash.h"

#include <QEventLoop>
#include <QTimer>
#include <chrono>

#include "app/main_window.h"
#include "ui/panels/about_backing.h"

namespace kzq {

namespace {

/// The desktop may keep a window back.
constexpr std::chrono::milliseconds longest(100);

/// Ends a loop when what it watches has been painted.
class FirstPaint : public QObject {
  public:
    explicit FirstPaint(QEventLoop& loop) : loop_(loop) {}

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            QTimer::singleShot(0, &loop_, &QEventLoop::quit);  // once all of the window is on the screen
        }
        return false;
    }

  private:
    QEventLoop& loop_;
};

}  // namespace

std::shared_ptr<AboutWindow> showSplash(const Product& product) {
    if (!MainWindow::startsWhole()) {
        return nullptr;
    }
    const auto window = std::make_shared<AboutWindow>(product);
    window->centre();
    window->comeForward();
    QEventLoop loop;
    FirstPaint painted(loop);
    window->backing().installEventFilter(&painted);
    QTimer::singleShot(longest, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    return window;
}

}  // namespace kzq
