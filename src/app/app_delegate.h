#pragma once

#include <QPoint>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <set>

#include "app/app_parts.h"
#include "app/application.h"
#include "app/launch.h"
#include "app/main_window.h"
#include "device/kzq7306_delegate.h"
#include "slots/slot_delegate.h"
#include "ui/application_controller.h"

namespace kzq {

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
    /// Files that came without a row, for the next free ones.
    void openFiles(const QList<QUrl>& files);
    /// Somebody started the program again.
    void comeForward();
    void updaterWillRelaunchApplication(SUUpdater& updater) override;

    // --- what it owns

    /// The way to all of it; a new panel or flow needs no accessor here.
    AppParts& parts() const { return *parts_; }
    // null, or empty, before the launch
    Menu* menu() const { return parts_->panels.menu.get(); }
    About* about() const { return parts_->panels.about.get(); }
    Progress* progress() const { return parts_->panels.progress.get(); }
    FirmwareUpdater* firmwareUpdater() const { return parts_->panels.firmwareUpdater.get(); }
    SUUpdater* sparkle() const { return parts_->panels.sparkle.get(); }
    /// Entry i is loop i + 1.
    const Slots& importSlots() const { return parts_->rows.imports; }
    const Slots& exportSlots() const { return parts_->rows.exports; }
    const std::set<SlotNumber>& selectedImportSlots() const { return parts_->model.selection(); }
    const Exports& selectedExportSlots() const { return parts_->model.staging(); }

    // --- the pedal

    void looperIsConnected(KZQ7306& looper) override;
    void looperHasBeenDisconnected() override;
    void looperInternalStateChanged(const Status& status) override;
    void looperMayHaveChanged() override;

    // --- rows, staging, the meter

    void checkboxStateChangedForImportSlot(Slot& slot) override;
    void buttonClickedForExportSlot(Slot& slot) override { parts_->staging->choose(slot); }
    void nameEditingBeganForSlot(Slot& /*slot*/) override {}
    void nameEditingEndedForSlot(Slot& /*slot*/) override { parts_->presenter.focusContent(); }
    void exportAboutToBeRemoved(Slot& slot) override { parts_->staging->aboutToBeRemoved(slot); }
    void exportRemoved(Slot& slot) override { parts_->staging->removed(slot); }
    void playClickedForSlot(Slot& slot) override { parts_->listening.clicked(slot); }
    void compareClickedForSlot(Slot& slot) override { parts_->listening.compare(slot); }
    Slot* slotNumber(std::uint8_t number, std::int32_t context) override;
    void slotReceivedDroppedURLs(Slot& slot, const QList<QUrl>& urls) override;
    void filesHeldOverSlot(Slot& slot, const QList<QUrl>& urls) override;
    void dragBegunForSlot(Slot& slot) override;
    SlotFieldEditor* windowWillReturnFieldEditor(QWidget* window, QObject* object) override;
    /// Frames in use once everything staged is written.
    std::uint64_t existingAndTeedUpExportSamples() const { return parts_->model.inUse().count; }
    /// The same with `frames` for `slot`, in place of what is there.
    std::uint64_t existingAndTeedUpExportSamplesWithProposedExport(std::uint64_t frames,
                                                                   SlotNumber slot) const;
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
    bool isMainWindow(const QWindow& window) const override;
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
    const std::unique_ptr<AppParts> parts_;
};

}  // namespace kzq
