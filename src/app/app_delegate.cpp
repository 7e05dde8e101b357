#include "app/app_delegate.h"

#include <utility>

#include "app/erase_flow.h"
#include "app/export_flow.h"
#include "app/firmware_flow.h"
#include "app/import_flow.h"
#include "app/keep_flow.h"
#include "app/said.h"
#include "app/start_up.h"
#include "device/kzq7306.h"
#include "loops/capacity.h"
#include "slots/slot_field.h"
#include "ui/panels/front_window.h"

namespace kzq {

namespace {

/// The pedal's version is known now.
void pedalRead(AppParts& parts) {
    if (parts.panels.firmwareUpdater) {
        parts.panels.firmwareUpdater->updates()->pedalRead();
    }
}

/// The table of a pedal that has arrived.
void showTable(AppParts& parts, const std::optional<Loops>& loops) {
    const auto looper = parts.environment.link();
    if (!looper || looper->disconnected()) {
        return;  // it left before the table arrived here
    }
    if (loops && parts.model.arrived(*loops)) {
        pedalRead(parts);
        parts.presenter.table();
        parts.bringBack.tableChanged();
        parts.backingUp.tableChanged();
        parts.listening.rowsChanged();
        parts.teller.rest();
        if (!parts.flows->running()) {
            parts.teller.say(saidConnected(loops->size(), {remainingFrames(parts.model.inUse().count)}));
        }
        parts.handedFiles.place();
        parts.carryIn.refresh();
    } else {
        looper->refresh();
    }
}

}  // namespace

AppDelegate::AppDelegate(AppEnvironment environment, MainWindow& window)
    : parts_(std::make_unique<AppParts>(std::move(environment), window)) {}

AppDelegate::~AppDelegate() = default;

// --- start and end

void AppDelegate::openFiles(const QList<QUrl>& files) {
    if (!files.isEmpty()) {
        parts_->handedFiles.add(files);
        parts_->carryIn.openTab();
    }
}

void AppDelegate::comeForward() {
    openMainWindow();
    auto* const front = frontWindow(&parts_->window);
    front->raise();
    front->activateWindow();
}

void AppDelegate::updaterWillRelaunchApplication(SUUpdater& /*updater*/) {
    writeBundleNameMarker(parts_->environment.home);
}

// --- the pedal

void AppDelegate::looperIsConnected(KZQ7306& looper) {
    parts_->flows->pedalReturned(looper.stage());
    parts_->firmware.arrived(looper.stage());
    if (firmwareUpdater() != nullptr) {
        firmwareUpdater()->check();
        firmwareUpdater()->updates()->pedalRead();
    }
    parts_->presenter.redrawAbout();
    parts_->staging->letGo(parts_->rows.stagedFiles(parts_->model.staging()));
    parts_->model.reset();
    parts_->presenter.connected();
    parts_->listening.rowsChanged();
    parts_->staging->arrived();
    parts_->teller.rest();
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
    pedalRead(*parts_);
    if (const auto looper = parts_->environment.link(); !looper || looper->disconnected()) {
        return;  // it left before the news arrived here
    }
    if (const auto change = parts_->model.changed(status.loops)) {
        parts_->presenter.change(*change);
        parts_->bringBack.tableChanged();
        parts_->backingUp.tableChanged();
        parts_->listening.rowsChanged();
        parts_->teller.rest();
        parts_->handedFiles.place();
        parts_->carryIn.refresh();
    }
}

void AppDelegate::looperMayHaveChanged() {
    parts_->listening.rowsChanged();
    parts_->backingUp.tableChanged();
}

void AppDelegate::looperHasBeenDisconnected() {
    if (!parts_->flows->running()) {  // or its outcome says so
        parts_->teller.say(saidDisconnected());
    }
    parts_->flows->pedalLeft();
    parts_->firmware.left();
    parts_->presenter.redrawAbout();
    parts_->staging->letGo(parts_->rows.stagedFiles(parts_->model.staging()));
    parts_->model.reset();
    parts_->presenter.left();
    parts_->bringBack.tableChanged();
    parts_->backingUp.tableChanged();
    parts_->listening.rowsChanged();
    parts_->teller.forgetImports();
    parts_->teller.rest();
    parts_->carryIn.refresh();
}

// --- rows, staging, meter

void AppDelegate::checkboxStateChangedForImportSlot(Slot& slot) {
    parts_->model.select(slotOf(slot), slot.selected());
    parts_->presenter.checked(slot);
}

Slot* AppDelegate::slotNumber(std::uint8_t number, std::int32_t context) {
    return parts_->rows.find(number, context);
}

void AppDelegate::slotReceivedDroppedURLs(Slot& slot, const QList<QUrl>& urls) {
    parts_->staging->dropped(slot, urls);
}

void AppDelegate::filesHeldOverSlot(Slot& slot, const QList<QUrl>& urls) {
    parts_->carryIn.heldOver(slot, urls);
}

void AppDelegate::dragBegunForSlot(Slot& slot) {
    parts_->carryOut.begin(slot);
}

SlotFieldEditor* AppDelegate::windowWillReturnFieldEditor(QWidget* /*window*/, QObject* object) {
    return qobject_cast<SlotField*>(object) != nullptr ? parts_->fieldEditor.get() : nullptr;
}

std::uint64_t AppDelegate::existingAndTeedUpExportSamplesWithProposedExport(std::uint64_t frames,
                                                                            SlotNumber slot) const {
    return parts_->model.inUseWith(slot, {frames}).count;
}

// --- buttons and tabs

void AppDelegate::importButtonClicked() {
    beginImport(*parts_);
}

void AppDelegate::exportButtonClicked() {
    beginExport(*parts_, Copies::kept);
}

void AppDelegate::eraseButtonClicked() {
    beginErase(*parts_, Copies::kept);
}

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

void AppDelegate::cancelTransfer() {
    if (const auto looper = parts_->environment.link()) {
        looper->cancelTransfer();
    }
    parts_->flows->cancel();
}

void AppDelegate::selectImportTab() {
    closeMenu();
    parts_->presenter.showTab(Slot::importContext);
}

void AppDelegate::selectExportTab() {
    closeMenu();
    parts_->presenter.showTab(Slot::exportContext);
}

// --- the menu

bool AppDelegate::isMainWindow(const QWindow& window) const {
    return parts_->window.windowHandle() == &window;
}

void AppDelegate::installFirmware() {
    beginOfferedFirmware(*parts_);
}

void AppDelegate::installFirmware(const std::filesystem::path& image) {
    beginFirmware(*parts_, image);
}

void AppDelegate::openProgress(std::uint64_t total, std::int32_t context) {
    const auto& model = parts_->model;
    const bool exports = context != Slot::importContext;
    parts_->transferPanel.open(total, exports ? model.staging().size() : model.selection().size(), context);
}

}  // namespace kzq
