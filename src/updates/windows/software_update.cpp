#include "updates/windows/software_update.h"

#include <algorithm>

#include "ui/palette.h"
#include "ui/scale.h"
#include "ui_SoftwareUpdate.h"
#include "updates/windows/notes_view.h"
#include "updates/windows/software_update_view.h"
#include "updates/windows/update_panel.h"
#include "words/words.h"

namespace kzq {
namespace {

constexpr int windowWidth = 448;
constexpr int foot = 16;          ///< under the buttons
constexpr int spaceAbove = 20;    ///< over the buttons
constexpr int detailSpacing = 4;  ///< under the headline
constexpr int contentTop = 88;    ///< of notes and bar

}  // namespace

std::unique_ptr<SoftwareUpdate> SoftwareUpdate::softwareUpdate(SoftwareUpdateEnvironment environment) {
    if (!environment.updater) {
        return nullptr;
    }
    return std::unique_ptr<SoftwareUpdate>(new SoftwareUpdate(std::move(environment)));
}

SoftwareUpdate::SoftwareUpdate(SoftwareUpdateEnvironment environment) : environment_(std::move(environment)) {
    environment_.updater->setObserver([this](const UpdateStatus& status) { show(status); });
    show(environment_.updater->status());
}

SoftwareUpdate::~SoftwareUpdate() {
    environment_.updater->setObserver(nullptr);
}

void SoftwareUpdate::loadWindow() {
    auto window = std::make_unique<UpdatePanel>();
    Ui::SoftwareUpdate description;
    description.setupUi(window.get());
    description.picture->setPicture(QStringLiteral("Update_mark"));
    description.headline->setType(15, 20, KZQWhite());
    description.detail->setType(13, 16, KZQGray());
    headline_ = description.headline;
    detail_ = description.detail;
    notes_ = description.notes;
    bar_ = description.bar;
    acceptButton_ = description.acceptButton;
    cancelButton_ = description.cancelButton;
    QObject::connect(acceptButton_, &AlertButton::clicked, window.get(), [this] { accept(); });
    QObject::connect(cancelButton_, &AlertButton::clicked, window.get(), [this] { cancelOperation(); });
    QObject::connect(window.get(), &UpdatePanel::escape, window.get(), [this] { cancelOperation(); });
    QObject::connect(window.get(), &UpdatePanel::closing, window.get(), [this] { cancelOperation(); });
    window_ = std::move(window);
    window_->centre();
}

void SoftwareUpdate::checkForUpdates() {
    environment_.updater->checkForUpdates();
    panel().present();
}

void SoftwareUpdate::accept() {
    auto& updater = *environment_.updater;
    const auto state = updater.status().state;
    if (state == UpdateState::offered) {
        updater.install();
    } else if (state != UpdateState::ready) {
        cancelOperation();
    } else if (environment_.busy && environment_.busy()) {
        auto view = softwareUpdateView(updater.status(), environment_.version);
        view.detail = QString::fromStdString(words("The pedal is busy. Try again later."));
        arrange(view);
    } else {
        updater.relaunch();
    }
}

void SoftwareUpdate::cancelOperation() {
    environment_.updater->cancel();
    panel().hide();
}

void SoftwareUpdate::show(const UpdateStatus& status) {
    if (status.state != UpdateState::idle) {
        panel();
        arrange(softwareUpdateView(status, environment_.version));
    } else if (window_) {
        window_->hide();
    }
}

void SoftwareUpdate::arrange(const SoftwareUpdateView& view) {
    headline_->setText(view.headline);
    detail_->setText(view.detail);
    if (shownNotes_ != view.notes) {
        shownNotes_ = view.notes;
        notes_->clear();
        notes_->appendNotes(view.notes);
    }
    notes_->setVisible(!view.notes.isEmpty());
    bar_->setVisible(view.progress.has_value());
    bar_->setDoubleValue(view.progress.value_or(0));
    acceptButton_->setFace(view.cream ? AlertButton::Face::cream : AlertButton::Face::brown);
    acceptButton_->setText(view.accept);
    acceptButton_->setVisible(!view.accept.isEmpty());
    cancelButton_->setText(view.cancel);
    cancelButton_->setVisible(!view.cancel.isEmpty());
    place(view);
    window_->setDefaultButton(view.accept.isEmpty() ? nullptr : acceptButton_);
}

/// The window is as high as its content. Each button keeps its column: the second click of a double click on
/// "Install" must not hit "Cancel", and a late click on "Cancel" must not install.
void SoftwareUpdate::place(const SoftwareUpdateView& view) {
    const auto at = [](QWidget& part, int top) {
        auto given = placeOf(part);
        given.moveTop(top);
        kzq::place(part, given);
        return given.height();
    };
    const auto stretch = [](QLabel& label) {
        auto given = placeOf(label);
        given.setHeight(heightFor(label, given.width()));
        kzq::place(label, given);
        return given.bottom() + 1 + detailSpacing;
    };
    at(*detail_, stretch(*headline_));
    int bottom = std::max(contentTop, stretch(*detail_));
    if (view.progress) {
        bottom += at(*bar_, bottom);
    } else if (!view.notes.isEmpty()) {
        bottom += at(*notes_, bottom);
    }
    const int top = bottom + spaceAbove;
    at(*cancelButton_, top);
    const int height = top + at(*acceptButton_, top) + foot;
    kzq::place(*window_, {0, 0, windowWidth, height});
}

UpdatePanel& SoftwareUpdate::panel() {
    if (!window_) {
        loadWindow();
    }
    return *window_;
}

QWidget& SoftwareUpdate::window() {
    return panel();
}

}  // namespace kzq
