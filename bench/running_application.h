#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QTimer>
#include <algorithm>
#include <atomic>
#include <iostream>
#include <thread>
#include <utility>

#include "app/app_delegate.h"
#include "app/application.h"
#include "app/main_window.h"
#include "device/kzq7306.h"
#include "device/simulator/simulated_pedal.h"
#include "paced_port.h"
#include "platform/fixed.h"
#include "platform/qt_executor.h"
#include "test_folder.h"
#include "ui/panels/progress.h"

namespace kzq::test {

using namespace std::chrono_literals;  // NOLINT(google-global-names-in-headers): of tests
using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr auto usualPeriod = 50ms;

/// Measures, on a thread that does nothing else, how late it wakes: the delay caused by the computer itself,
/// which may be busy.
class BareTimer : Fixed {
  public:
    explicit BareTimer(Clock::duration period = usualPeriod)
        : thread_([this, period] {
              for (auto due = Clock::now() + period; running_; due += period) {
                  std::this_thread::sleep_until(due);
                  latest_ = std::max<Milliseconds>(latest_, Clock::now() - due);
                  due = std::max(due, Clock::now() - period);
              }
          }) {}
    ~BareTimer() { stop(); }

    /// The longest delay.
    Milliseconds stop() {
        running_ = false;
        if (thread_.joinable()) {
            thread_.join();
        }
        return latest_;
    }

  private:
    std::atomic<bool> running_ = true;
    Milliseconds latest_{};
    std::thread thread_;
};

/// A timer of the window's thread.
class WindowTimer {
  public:
    explicit WindowTimer(std::chrono::milliseconds period = usualPeriod) : period_(period) {
        timer_.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { tick(); });
        timer_.start(period);
    }
    Milliseconds stop() {
        timer_.stop();
        tick();
        return latest_;
    }

  private:
    void tick() {
        const auto now = Clock::now();
        latest_ = std::max<Milliseconds>(latest_, now - last_ - period_);
        last_ = now;
    }
    const std::chrono::milliseconds period_;
    QTimer timer_;
    Clock::time_point last_ = Clock::now();
    Milliseconds latest_{};
};

inline bool until(const std::function<bool()>& condition, Clock::duration patience) {
    const auto end = Clock::now() + patience;
    QTimer wake;  // so that the end is noticed
    wake.start(1s);
    while (!condition() && Clock::now() < end) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return condition();
}

struct FolderChooser : Dialogs {
    int run(const Alert& alert) override {
        ADD_FAILURE() << alert.headline;
        return alertFirstButton;
    }
    int run(const Alert& alert, bool& /*ticked*/) override { return run(alert); }
    Chosen chooseFile(const std::string& /*title*/, const FileKind& /*allowed*/) override { return {}; }
    Chosen chooseFolder(const std::string& /*title*/, const std::string& /*prompt*/) override {
        return {panelOk, folder};
    }
    Chosen chooseNewFile(const std::string& /*title*/, const std::string& /*name*/,
                         const FileKind& /*usual*/) override {
        return {};
    }
    bool openAddress(const std::string& /*url*/) override { return true; }
    bool openApplication(const std::filesystem::path& /*bundle*/) override { return false; }
    std::filesystem::path folder;
};

struct NoWeb : HttpClient {
    HttpResult fetch(const HttpRequest& /*request*/) override { return {HttpFailure::network, "none", {}}; }
};

/// Never destroyed, as in the program: jobs may be blocked in a transfer.
struct RunningApplication {
    explicit RunningApplication(simulator::PedalMemory memory, AudioOutput* sound = nullptr)
        : pedal{executor, {.memory = std::move(memory)}}, output(sound) {
        KZQ7306::load({executor, port, [] { return 36U; }});
        static_cast<Application*>(qApp)->setDelegate(delegate.get());
        pedal.plugIn();
        delegate->applicationDidFinishLaunching();
    }

    AppEnvironment environment() {
        return {.executor = executor,
                .dialogs = dialogs,
                .http = web,
                .link = &KZQ7306::looper,
                .home = base,
                .product = {.version = "1", .website = "https://localhost"},
                .firmwareManifest = "https://localhost/_.json",
                .feedAddress = [](const auto& /*home*/) { return std::string("https://localhost/_.xml"); },
                .desktop = {},
                .build = {},
                .installation = {},
                .downloads = base,
                .convert = {},
                .diagnose = {},
                .modifiers = {},
                .sound = output,
                .runFolder = [this] { return std::optional<std::filesystem::path>(base); },
                .quit = {}};
    }

    void startImport() {
        window.selectAllButton()->click();
        dialogs.folder = base / std::to_string(++imports);
        std::filesystem::create_directory(dialogs.folder);
        window.importButton()->click();
    }
    /// Waits until the pedal's loops are there and the window has been drawn.
    bool ready() {
        const bool there =
            until([&] { return window.isVisible() && window.selectAllButton()->isEnabled(); }, 20s);
        until([] { return false; }, 500ms);
        return there;
    }
    bool busy() const { return window.shield() != nullptr || delegate->progress()->isVisible(); }

    test::TestFolder base;
    int imports = 0;
    QtExecutor executor;
    simulator::SimulatedPedal pedal;
    PacedPort port{executor, pedal};
    AudioOutput* const output;
    FolderChooser dialogs;
    NoWeb web;
    MainWindow window;
    std::shared_ptr<AppDelegate> delegate = std::make_shared<AppDelegate>(environment(), window);
};

inline void report(const char* what, Milliseconds time) {
    std::cout << what << ": " << time.count() << " ms" << std::endl;
}

}  // namespace kzq::test
