#include "updates/windows/firmware_updater.h"

#include <QPointer>

#include "ui/palette.h"
#include "ui_FirmwareUpdater.h"
#include "updates/windows/notes_view.h"
#include "updates/windows/update_panel.h"

namespace kzq {

std::unique_ptr<FirmwareUpdater> FirmwareUpdater::updater(FirmwareEnvironment environment) {
    auto updater = std::unique_ptr<FirmwareUpdater>(new FirmwareUpdater);
    updater->progress_ =
        updater->loadWindow() ? FirmwareUpdaterProgress::progress(environment.executor) : nullptr;
    if (!updater->progress_) {
        return nullptr;
    }
    // The checks may outlive the window while another thread holds them.
    environment.showHeadline = [blurb = QPointer(updater->blurb_),
                                notes = QPointer(updater->notes_)](const std::string& headline) {
        if (blurb && notes) {
            blurb->setText(QString::fromStdString(headline));
            notes->emptyNotes();
        }
    };
    environment.appendNotes = [notes = QPointer(updater->notes_)](const std::string& text) {
        if (notes) {
            notes->appendNotes(QString::fromStdString(text));
        }
    };
    updater->updates_ = FirmwareUpdates::updater(std::move(environment));
    return updater;
}

FirmwareUpdater::FirmwareUpdater() = default;

FirmwareUpdater::~FirmwareUpdater() {
    if (updates_) {
        updates_->stop();
    }
}

bool FirmwareUpdater::loadWindow() {
    auto window = std::make_unique<UpdatePanel>();
    Ui::FirmwareUpdater description;
    description.setupUi(window.get());
    description.picture->setPicture(QStringLiteral("Firmware_pedal"));
    description.blurb->setType(15, 20, KZQWhite());
    description.button->setFace(AlertButton::Face::cream);
    blurb_ = description.blurb;
    notes_ = description.notes;
    button_ = description.button;
    window->setFixedSize(window->size());
    window->setDefaultButton(button_);
    window->centre();
    QObject::connect(button_, &AlertButton::clicked, window.get(), [this] { install(); });
    QObject::connect(window.get(), &UpdatePanel::escape, window.get(), [this] { cancelOperation(); });
    window_ = std::move(window);
    return true;
}

void FirmwareUpdater::showWindow() {
    window_->present();
}

void FirmwareUpdater::close() {
    window_->close();
}

void FirmwareUpdater::install() {
    if (delegate_ != nullptr) {
        delegate_->installFirmware();
    }
}

void FirmwareUpdater::cancelOperation() {
    close();
}

QWidget& FirmwareUpdater::window() {
    return *window_;
}

}  // namespace kzq
