#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "app/app_delegate.h"
#include "app/app_environment.h"
#include "app/main_window.h"
#include "device/kzq7306.h"
#include "device/simulator/simulated_pedal.h"
#include "fake_output.h"
#include "fake_web.h"
#include "loops.h"
#include "paced_port.h"
#include "slots/slot_button.h"
#include "test_folder.h"
#include "ui/panels/about.h"
#include "ui/panels/menu.h"
#include "ui/panels/progress.h"
#include "ui/shield.h"
#include "ui/status/status_line.h"
#include "virtual_executor.h"

namespace kzq::test {

inline constexpr auto isBusy = "Device is busy. Try again later.";

using namespace std::chrono_literals;  // NOLINT(google-global-names-in-headers): of tests

/// Dialogs that a test answers. What was shown is recorded in order.
struct ScriptedDialogs : Dialogs {
    int run(const Alert& alert) override {
        shown.push_back(alert.finePrint.empty() ? alert.headline : alert.headline + " " + alert.finePrint);
        return answer();
    }
    int run(const Alert& alert, bool& ticked) override { return (ticked = ticks, run(alert)); }
    Chosen chooseNewFile(const std::string& title, const std::string& name,
                         const FileKind& /*usual*/) override {
        return (note(title, name), file());
    }
    Chosen chooseFile(const std::string& title, const FileKind& allowed) override {
        return (note(title, "file of " + std::to_string(allowed.types.size()) + " types"), file());
    }
    Chosen chooseFolder(const std::string& title, const std::string& prompt) override {
        return (note(title, "folder " + prompt), folder());
    }
    bool openAddress(const std::string& url) override {
        shown.push_back(url);
        return true;
    }
    bool openApplication(const std::filesystem::path& /*bundle*/) override { return false; }

    /// Since the last time.
    std::vector<std::string> take() { return std::exchange(shown, {}); }

    std::vector<std::string> shown;
    std::string titled;  ///< the last chooser
    bool ticks = false;  ///< the check box of an alert
    std::function<int()> answer = [] { return alertFirstButton; };
    std::function<Chosen()> file = [] { return Chosen{}; };
    std::function<Chosen()> folder = [] { return Chosen{}; };

  private:
    void note(const std::string& title, const std::string& what) {
        titled = title;
        shown.push_back(what);
    }
};

/// The application in this process, with a simulated pedal that has loops of 1000, 2000 and 1 frames in slots
/// 1, 3 and 20. At the end it is checked that the main thread never waited for another, and that the pedal
/// was never sent what it should not be.
class FlowTest : public testing::Test {
  public:
  protected:
    FlowTest();
    ~FlowTest() override;
    void TearDown() override;

    /// Starts the application and, by default, waits until the splash has closed.
    void launch(Executor::Duration wait = 2s);
    void plugIn();
    /// launch() with the pedal in.
    void launchConnected();
    void plan(const std::string& fault);
    void pass(Executor::Duration time);
    /// Lets time pass until nothing runs; returns whether that took less than a minute.
    bool becomesIdle();
    bool shieldUp() const { return window->shield() != nullptr; }

    void select(std::initializer_list<std::uint8_t> slots);
    Slot& importRow(std::uint8_t number) { return *delegate->slotNumber(number, Slot::importContext); }
    Slot& exportRow(std::uint8_t number) { return *delegate->slotNumber(number, Slot::exportContext); }
    /// Types a name and leaves the row's editor open.
    void type(std::uint8_t slot, const QString& name);
    /// An audio file of so many frames; sparse.
    std::filesystem::path audioFile(const std::string& name, std::uint64_t frames);
    /// Drops the file on the row; the conversion takes `conversionTime`.
    void drop(std::uint8_t slot, const std::filesystem::path& file);
    /// Drops a file of so many frames, and waits until it is staged.
    void stage(std::uint8_t slot, std::uint64_t frames);
    QAction& menuEntry(const QString& text) const;
    /// Chooses Verify After Export in the menu.
    void verifyAfterExport();
    std::string caption() const;
    /// What the status line says.
    std::string line() const { return window->statusLine().sentence().sentence().toStdString(); }

    std::vector<std::string> files() const { return namesIn(folder); }
    /// The word of the link beside it; empty: there is none.
    std::string link() const {
        const auto& link = window->statusLine().link();
        return link.isVisibleTo(window.get()) ? link.text().toStdString() : "";
    }
    Bytes contents(const std::string& name) const;
    long workingCopies() const;
    /// The values of these requests, in order.
    std::vector<int> sent(std::uint8_t request) const;

    VirtualExecutor executor;
    simulator::SimulatedPedal pedal;
    PacedPort port;
    TestFolder base;
    std::filesystem::path folder;                         ///< where imports go
    KeptCopies kept{base / "home/.local/share/kzq7306"};  ///< off
    ScriptedDialogs dialogs;
    FakeWeb web;
    Executor::Duration conversionTime{};
    std::map<std::string, Trouble> flaws;  ///< of files, by name: only salvaged
    decltype(AppEnvironment::writeFile) writeFile = writeNew;
    std::uint64_t freeSpace = 1'000'000;
    std::vector<Finding> diagnosis = {{Trouble::Kind::noUdev, true, "a remedy", {}}};
    decltype(AppEnvironment::lengthOf) lengthOf;
    decltype(AppEnvironment::dragFiles) dragFiles;
    decltype(AppEnvironment::asRoot) asRoot;
    decltype(AppEnvironment::wasEverBackedUp) wasEverBackedUp;
    decltype(AppEnvironment::backedUp) backedUp;
    decltype(AppEnvironment::keepAwake) keepAwake;
    decltype(AppEnvironment::examine) examine;
    FakeOutput output;
    AudioOutput* sound = &output;
    DesktopShell* shell = nullptr;
    Executor::Duration asleep{};
    TroubleReport report;  ///< but for the outcomes
    bool quitAsked = false;
    bool mainThreadWaits = false;  ///< set where a test makes it wait
    std::vector<std::string> logged;
    std::unique_ptr<MainWindow> window;
    std::shared_ptr<AppDelegate> delegate;

  private:
    static Result<std::filesystem::path> writeNew(const std::filesystem::path& folder, std::string_view name,
                                                  std::string_view extension,
                                                  std::span<const std::uint8_t> bytes) {
        return writeNewFile(folder, name, extension, bytes);
    }
    Result<std::string> convert(const std::string& path, bool salvage);
    int copies_ = 0;
};

}  // namespace kzq::test
