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

#include "app/app_parts.h"
#include "app/application.h"
#include "app/launch.h"
#include "app/loop_check.h"
#include "app/main_window.h"
#include "app/start_up.h"
#include "app/transfer_run.h"
#include "device/kzq7306_delegate.h"
#include "slots/slot_delegate.h"
#include "slots/slot_field.h"
#include "ui/application_controller.h"
#include "updates/firmware_cache.h"

namespace kzq {

class BusyQuestion;

/// The application's controller: what window, rows, panels, link and updaters call, and to which of its parts
/// it is handed on. On the main thread, which never waits for the pedal.
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
    void applicationDidFinishLaunching() { launch(shared_from_this(), *parts_); }
    /// Removes the working copies of what is still staged. Quick, in every state.
    void applicationWillTerminate() { parts_->staging->removeWorkingCopies(); }
    void updaterWillRelaunchApplication(SUUpdater& /*updater*/) override {
        writeBundleNameMarker(parts_->environment.home);
    }
    /// Asks the main loop to end.
    void quit() { parts_->environment.quit(); }

    // --- what it owns; null, or empty, before the launch

    Menu* menu() const { return parts_->panels.menu.get(); }
    About* about() const { return parts_->panels.about.get(); }
    Progress* progress() const { return parts_->panels.progress.get(); }
    FirmwareUpdater* firmwareUpdater() const { return parts_->panels.firmwareUpdater.get(); }
    SUUpdater* sparkle() const { return parts_->panels.sparkle.get(); }
    SoftwareUpdate* softwareUpdate() const { return parts_->panels.softwareUpdate.get(); }
    /// Entry i is loop i + 1.
    const Slots& importSlots() const { return parts_->rows.imports; }
    const Slots& exportSlots() const { return parts_->rows.exports; }
    const std::set<SlotNumber>& selectedImportSlots() const { return parts_->model.selection(); }
    const Exports& selectedExportSlots() const { return parts_->model.staging(); }

    // --- the pedal

    void looperIsConnected(KZQ7306& looper) override;
    void looperHasBeenDisconnected() override;
    void looperInternalStateChanged(const Status& status) override;

    // --- rows, staging, the meter

    void checkboxStateChangedForImportSlot(Slot& slot) override;
    void buttonClickedForExportSlot(Slot& slot) override { parts_->staging->choose(slot); }
    void nameEditingBeganForSlot(Slot& /*slot*/) override {}
    void nameEditingEndedForSlot(Slot& /*slot*/) override { parts_->presenter.focusContent(); }
    void exportAboutToBeRemoved(Slot& slot) override { parts_->staging->aboutToBeRemoved(slot); }
    void exportRemoved(Slot& slot) override { parts_->staging->removed(slot); }
    Slot* slotNumber(std::uint8_t number, std::int32_t context) override {
        return parts_->rows.find(number, context);
    }
    void slotReceivedDroppedURLs(Slot& slot, const QList<QUrl>& urls) override {
        parts_->staging->dropped(slot, urls);
    }
    SlotFieldEditor* windowWillReturnFieldEditor(QWidget* /*window*/, QObject* object) override {
        return qobject_cast<SlotField*>(object) != nullptr ? parts_->fieldEditor.get() : nullptr;
    }
    /// Frames in use once everything staged is written.
    std::uint64_t existingAndTeedUpExportSamples() const { return parts_->model.inUse().count; }
    /// The same with `frames` for `slot`, in place of what is there.
    std::uint64_t existingAndTeedUpExportSamplesWithProposedExport(std::uint64_t frames,
                                                                   SlotNumber slot) const {
        return parts_->model.inUseWith(slot, {frames}).count;
    }
    void setMeterValueAndCaption(std::uint64_t frames) { parts_->presenter.meter({frames}); }

    // --- buttons and tabs

    void importButtonClicked();
    void exportButtonClicked();
    void eraseButtonClicked();
    void selectAll();
    void deselectAll();
    void deselectAllExportSlots();
    void endEditing() { parts_->presenter.endEditing(); }
    void selectImportTab();
    void selectExportTab();
    /// The progress panel was closed by the user.
    void cancelTransfer();

    // --- the menu

    bool menuOpen() const override { return parts_->menu.isOpen(); }
    bool pointInMenuBounds(QPoint point) const override { return parts_->menu.contains(point); }
    bool isMainWindow(const QWindow& window) const override {
        return parts_->window.windowHandle() == &window;
    }
    void openMenu() { parts_->menu.open(); }
    void closeMenu() override { parts_->menu.close(); }
    void menuUp() override { parts_->menu.up(); }
    void menuDown() override { parts_->menu.down(); }
    void menuGo() override { parts_->menu.go(); }

    void openMainWindow() override { parts_->menu.openMainWindow(); }
    void openAbout() override { parts_->menu.openAbout(); }
    void openAboutBox() { openAbout(); }
    void checkForSoftwareUpdates() override { parts_->menu.checkForSoftwareUpdates(); }
    void openFirmwareUpdater() override { parts_->menu.openFirmwareUpdater(); }
    /// Deliberately does nothing: the program checks for firmware all the time.
    void checkForFirmwareUpdates() {}
    void installFirmware() override;
    void installFirmware(const std::filesystem::path& image) override;
    void goToWebsite() override { parts_->menu.goToWebsite(); }

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
