#include "app/app_delegate.h"

#include <QWindow>
#include <utility>

#include "app/app_parts.h"
#include "app/busy_question.h"
#include "app/launch.h"
#include "app/main_window.h"
#include "app/start_up.h"
#include "device/kzq7306.h"
#include "slots/slot_field.h"

namespace kzq {

namespace {

/// The table of a pedal that has arrived.
void showTable(AppParts& parts, const std::optional<Loops>& loops) {
    const auto looper = parts.environment.link();
    if (!looper || looper->disconnected()) {
        return;  // it left before the table arrived here
    }
    if (loops && parts.model.arrived(*loops)) {
        parts.presenter.table();
    } else {
        looper->refresh();
    }
}

}  // namespace

AppDelegate::AppDelegate(AppEnvironment environment, MainWindow& window)
    : parts_(std::make_unique<AppParts>(std::move(environment), window)),
      busyQuestion_(std::make_unique<BusyQuestion>(parts_->environment.executor, parts_->environment.link)) {}

AppDelegate::~AppDelegate() = default;

// --- start and end

void AppDelegate::applicationDidFinishLaunching() {
    launch(shared_from_this(), *parts_);
}

void AppDelegate::applicationWillTerminate() {
    parts_->staging->removeWorkingCopies();
}

void AppDelegate::updaterWillRelaunchApplication(SUUpdater& /*updater*/) {
    writeBundleNameMarker(parts_->environment.home);
}

void AppDelegate::quit() {
    parts_->environment.quit();
}

// --- what it owns

Menu* AppDelegate::menu() const {
    return parts_->panels.menu.get();
}

About* AppDelegate::about() const {
    return parts_->panels.about.get();
}

Progress* AppDelegate::progress() const {
    return parts_->panels.progress.get();
}

FirmwareUpdater* AppDelegate::firmwareUpdater() const {
    return parts_->panels.firmwareUpdater.get();
}

SUUpdater* AppDelegate::sparkle() const {
    return parts_->panels.sparkle.get();
}

SoftwareUpdate* AppDelegate::softwareUpdate() const {
    return parts_->panels.softwareUpdate.get();
}

const AppDelegate::Slots& AppDelegate::importSlots() const {
    return parts_->rows.imports;
}

const AppDelegate::Slots& AppDelegate::exportSlots() const {
    return parts_->rows.exports;
}

const std::set<SlotNumber>& AppDelegate::selectedImportSlots() const {
    return parts_->model.selection();
}

const Exports& AppDelegate::selectedExportSlots() const {
    return parts_->model.staging();
}

// --- the pedal

void AppDelegate::looperIsConnected(KZQ7306& looper) {
    if (firmwareUpdater() != nullptr) {
        firmwareUpdater()->check();
    }
    parts_->presenter.redrawAbout();
    parts_->model.reset();
    parts_->presenter.connected();
    looper.loops([&executor = parts_->environment.executor, weak = weak_from_this()](auto loops) {
        executor.main([weak, loops = std::move(loops)] {
            if (const auto self = weak.lock()) {
                showTable(*self->parts_, loops);
            }
        });
    });
}

void AppDelegate::looperInternalStateChanged(const Status& status) {
    parts_->presenter.redrawAbout();
    if (const auto looper = parts_->environment.link(); !looper || looper->disconnected()) {
        return;  // it left before the news arrived here
    }
    if (const auto change = parts_->model.changed(status.loops)) {
        parts_->presenter.change(*change);
    }
}

void AppDelegate::looperHasBeenDisconnected() {
    if (run_) {
        run_->pedalLeft = true;
    }
    parts_->presenter.redrawAbout();
    parts_->model.reset();
    parts_->presenter.left();
}

// --- rows, staging, meter

void AppDelegate::checkboxStateChangedForImportSlot(Slot& slot) {
    parts_->model.select(slotOf(slot), slot.selected());
    parts_->presenter.checked(slot);
}

void AppDelegate::buttonClickedForExportSlot(Slot& slot) {
    parts_->staging->choose(slot);
}

void AppDelegate::nameEditingBeganForSlot(Slot& /*slot*/) {}

void AppDelegate::nameEditingEndedForSlot(Slot& /*slot*/) {
    parts_->presenter.focusContent();
}

void AppDelegate::exportAboutToBeRemoved(Slot& slot) {
    parts_->staging->aboutToBeRemoved(slot);
}

void AppDelegate::exportRemoved(Slot& slot) {
    parts_->staging->removed(slot);
}

Slot* AppDelegate::slotNumber(std::uint8_t number, std::int32_t context) {
    return parts_->rows.find(number, context);
}

void AppDelegate::slotReceivedDroppedURLs(Slot& slot, const QList<QUrl>& urls) {
    parts_->staging->dropped(slot, urls);
}

SlotFieldEditor* AppDelegate::windowWillReturnFieldEditor(QWidget* /*window*/, QObject* object) {
    return qobject_cast<SlotField*>(object) != nullptr ? parts_->fieldEditor.get() : nullptr;
}

std::uint64_t AppDelegate::existingAndTeedUpExportSamples() const {
    return parts_->model.inUse().count;
}

std::uint64_t AppDelegate::existingAndTeedUpExportSamplesWithProposedExport(std::uint64_t frames,
                                                                            SlotNumber slot) const {
    return parts_->model.inUseWith(slot, {frames}).count;
}

void AppDelegate::setMeterValueAndCaption(std::uint64_t frames) {
    parts_->presenter.meter({frames});
}

// --- buttons and tabs

void AppDelegate::selectAll() {
    parts_->model.selectAll();
    parts_->presenter.allSelected();
}

void AppDelegate::deselectAll() {
    parts_->presenter.noneSelected();
    parts_->model.deselectAll();
}

void AppDelegate::deselectAllExportSlots() {
    parts_->model.sent();
    parts_->presenter.exportsCleared();
}

void AppDelegate::endEditing() {
    parts_->presenter.endEditing();
}

void AppDelegate::selectImportTab() {
    closeMenu();
    parts_->presenter.importTab();
}

void AppDelegate::selectExportTab() {
    closeMenu();
    parts_->presenter.exportTab();
}

// --- the menu

bool AppDelegate::menuOpen() const {
    return parts_->menu.isOpen();
}

bool AppDelegate::pointInMenuBounds(QPoint point) const {
    return parts_->menu.contains(point);
}

bool AppDelegate::isMainWindow(const QWindow& window) const {
    return parts_->window.windowHandle() == &window;
}

void AppDelegate::openMenu() {
    parts_->menu.open();
}

void AppDelegate::closeMenu() {
    parts_->menu.close();
}

void AppDelegate::menuUp() {
    parts_->menu.up();
}

void AppDelegate::menuDown() {
    parts_->menu.down();
}

void AppDelegate::menuGo() {
    parts_->menu.go();
}

void AppDelegate::openMainWindow() {
    parts_->menu.openMainWindow();
}

void AppDelegate::openAbout() {
    parts_->menu.openAbout();
}

void AppDelegate::checkForSoftwareUpdates() {
    parts_->menu.checkForSoftwareUpdates();
}

void AppDelegate::openFirmwareUpdater() {
    parts_->menu.openFirmwareUpdater();
}

void AppDelegate::goToWebsite() {
    parts_->menu.goToWebsite();
}

void AppDelegate::openProgress(std::uint64_t total, std::int32_t context) {
    if (total == 0) {
        return;
    }
    closeMenu();
    const auto& model = parts_->model;
    const bool exports = context != Slot::importContext;
    parts_->transferPanel.open(total, exports ? model.staging().size() : model.selection().size(), context);
}

}  // namespace kzq
