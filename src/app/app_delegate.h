#pragma once

#include <QPoint>
#include <QUrl>
#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>

#include "app/application.h"
#include "app/loop_check.h"
#include "app/rows.h"
#include "app/transfer_run.h"
#include "device/kzq7306_delegate.h"
#include "loops/export_info.h"
#include "slots/slot_delegate.h"
#include "ui/application_controller.h"
#include "updates/firmware_cache.h"
#include "updates/su_updater.h"
#include "updates/windows/firmware_updater.h"

namespace kzq {

class About;
class BusyQuestion;
class KZQ7306;
class MainWindow;
class Menu;
class Progress;
class SlotFieldEditor;
class SoftwareUpdate;
struct AppEnvironment;
struct AppParts;

/// The application's controller: what window, rows, panels, link and updaters call. What it does stands in
/// AppParts, and how it begins in `launch`. On the main thread, which never waits for the pedal.
class AppDelegate : public std::enable_shared_from_this<AppDelegate>,
                    public ApplicationDelegate,
                    public ApplicationController,
                    public KZQ7306Delegate,
                    public SlotDelegate,
                    public FirmwareUpdaterDelegate,
                    public SUUpdaterDelegate {
  public:
    using Slots = Rows::List;

    /// Create it with std::make_shared. `window` outlives it.
    AppDelegate(AppEnvironment environment, MainWindow& window);
    ~AppDelegate() override;

    // --- start and end

    /// Called once: panels, rows, device link, splash. KZQ7306::load was called before. Stops if the menu, a
    /// panel or a row cannot be created.
    void applicationDidFinishLaunching();
    /// Removes the working copies of what is still staged. Quick, in every state.
    void applicationWillTerminate();
    void updaterWillRelaunchApplication(SUUpdater& updater) override;
    /// Asks the main loop to end.
    void quit();

    // --- what it owns; null, or empty, before the launch

    Menu* menu() const;
    About* about() const;
    Progress* progress() const;
    FirmwareUpdater* firmwareUpdater() const;
    SUUpdater* sparkle() const;
    SoftwareUpdate* softwareUpdate() const;
    /// Entry i is loop i + 1.
    const Slots& importSlots() const;
    const Slots& exportSlots() const;
    const std::set<SlotNumber>& selectedImportSlots() const;
    const Exports& selectedExportSlots() const;

    // --- the pedal

    void looperIsConnected(KZQ7306& looper) override;
    void looperHasBeenDisconnected() override;
    void looperInternalStateChanged(const Status& status) override;

    // --- rows, staging, meter

    void checkboxStateChangedForImportSlot(Slot& slot) override;
    void buttonClickedForExportSlot(Slot& slot) override;
    void nameEditingBeganForSlot(Slot& slot) override;
    void nameEditingEndedForSlot(Slot& slot) override;
    void exportAboutToBeRemoved(Slot& slot) override;
    void exportRemoved(Slot& slot) override;
    Slot* slotNumber(std::uint8_t number, std::int32_t context) override;
    void slotReceivedDroppedURLs(Slot& slot, const QList<QUrl>& urls) override;
    SlotFieldEditor* windowWillReturnFieldEditor(QWidget* window, QObject* object) override;
    /// Frames in use once everything staged is written.
    std::uint64_t existingAndTeedUpExportSamples() const;
    /// The same with `frames` for `slot`, in place of what is there.
    std::uint64_t existingAndTeedUpExportSamplesWithProposedExport(std::uint64_t frames,
                                                                   SlotNumber slot) const;
    void setMeterValueAndCaption(std::uint64_t frames);

    // --- buttons and tabs

    void importButtonClicked();
    void exportButtonClicked();
    void eraseButtonClicked();
    void selectAll();
    void deselectAll();
    void deselectAllExportSlots();
    void endEditing();
    void selectImportTab();
    void selectExportTab();
    /// The progress panel was closed by the user.
    void cancelTransfer();

    // --- the menu

    bool menuOpen() const override;
    bool pointInMenuBounds(QPoint point) const override;
    bool isMainWindow(const QWindow& window) const override;
    void openMenu();
    void closeMenu() override;
    void menuUp() override;
    void menuDown() override;
    void menuGo() override;

    void openMainWindow() override;
    void openAbout() override;
    void openAboutBox() { openAbout(); }
    void checkForSoftwareUpdates() override;
    void openFirmwareUpdater() override;
    /// Deliberately does nothing: the program checks for firmware all the time.
    void checkForFirmwareUpdates() {}
    void installFirmware() override;
    void installFirmware(const std::filesystem::path& image) override;
    void goToWebsite() override;

    /// Shows the progress panel of a transfer of `total` bytes; not for 0. Context 0 is an import, 1 an
    /// export.
    void openProgress(std::uint64_t total, std::int32_t context);

  private:
    /// The phase of the one operation that can run.
    enum class Flow {
        none,
        starting,  ///< from the press of the button to its start, including all questions
        running    ///< while the shield is up
    };
    /// What a running operation shares with the link's threads.
    struct LinkRun {
        std::atomic<bool> asked = true;  ///< it waits for the link to accept it
        std::atomic<bool> cancelled = false;
        std::atomic<bool> pedalLeft = false;  ///< another may be there by now
        std::atomic<bool> over = false;
        std::atomic<std::uint64_t> call = 0;  ///< the USB call that was out at the last look; 0 for none
        /// The slots that were deselected for it, with the names typed; for its refusal. Main thread.
        std::map<SlotNumber, std::optional<QString>> deselected;
    };

    std::optional<Loop> shownIn(SlotNumber slot) const;

    // start.cpp: shared by the operations

    /// Asks the pedal whether it is busy; if so, tells the user. Otherwise `next` starts the operation and
    /// must end with endStart or beginRun.
    void whenIdle(std::function<void()> next);
    void sayBusy();
    void startSoon(std::function<void(AppDelegate&)> start);
    void endStart();
    void beginRun();
    void endRun();
    /// After beginRun: on a background thread, since the link asks the pedal before it begins. `ready`,
    /// if given, is asked first; if false, or if the pedal has left until then, the run ends. `operation`
    /// returns whether the link has accepted it. If it refuses because the pedal has left, the run ends; if
    /// because the pedal is busy, shield and panel deliberately stay up until the program ends.
    using OnLink = std::function<bool(KZQ7306&)>;
    void onLink(OnLink ready, OnLink operation);
    void endRefusedRun();
    /// A function that any thread may call to run `task` on the main thread while this lives.
    std::function<void()> onMain(std::function<void(AppDelegate&)> task);
    TransferRun::Listener transferListener(void (AppDelegate::*loopDone)(std::uint8_t slot),
                                           std::function<void(AppDelegate&)> finished);
    void insistOnCancel(Executor::Duration delay, const std::shared_ptr<LinkRun>& run);

    void startImport(const std::filesystem::path& folder);
    void loopSaved(std::uint8_t number);
    void finishImport();
    void startExport();
    bool stillStaged(const Exports& asked) const;
    void loopSent(std::uint8_t number);
    void finishExport(const Exports& sent);
    void startErase(AskedLoops asked);
    void finishErase();

    // firmware_flow.cpp
    void readImage(std::function<std::optional<FirmwareImage>()> read);
    void flash(FirmwareImage image);

    const std::unique_ptr<AppParts> parts_;
    std::unique_ptr<BusyQuestion> busyQuestion_;
    Flow flow_ = Flow::none;
    std::shared_ptr<LinkRun> run_;  ///< the operation that is running; null without one
};

}  // namespace kzq
