#include "updates/windows/firmware_notice.h"

#include <QApplication>
#include <QTimer>
#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

#include "ui/palette.h"
#include "ui/picture_view.h"
#include "ui/scale.h"
#include "updates/windows/line_label.h"
#include "updates/windows/update_panel.h"
#include "words/words.h"

namespace kzq {

namespace {

constexpr QRect mark(24, 24, 40, 48);
constexpr int textLeft = 84;
constexpr int side = 24;
constexpr int underButtons = 20;
constexpr int gap = 12;  // between the buttons

/// Of an ending, and of the offer to repair a pedal.
struct Layout {
    int width;
    int top;  // of the text
    int underHeadline;
    int overButtons;
    int declineWidth;
};
constexpr Layout endings{400, 24, 4, 24, 96};
constexpr Layout repairs{432, 26, 6, 34, 112};

QString pictureOf(FirmwareNotice::Kind kind) {
    constexpr std::array names{"Firmware_done", "Firmware_missing", "Firmware_repair", "Firmware_repair"};
    return names.at(static_cast<std::size_t>(kind));
}

/// Returns its lower edge.
int stack(QLabel& label, int top, int width) {
    const int height = heightFor(label, width);
    kzq::place(label, {textLeft, top, width, height});
    return top + height;
}

}  // namespace

FirmwareNoticeWindow::FirmwareNoticeWindow() : window_(std::make_unique<UpdatePanel>()) {
    auto* const parent = window_.get();
    window_->setWindowTitle(QString::fromStdString(words("Firmware Update")));
    window_->setAttribute(Qt::WA_ShowWithoutActivating);
    picture_ = new PictureView(parent);
    picture_->setGeometry(mark);
    auto* const headline = new LineLabel(parent);
    headline->setType(15, 20, KZQWhite());
    headline->setObjectName("headline");
    headline_ = headline;
    auto* const detail = new LineLabel(parent);
    detail->setType(13, 18, KZQGray());
    detail->setObjectName("detail");
    detail_ = detail;
    decline_ = new AlertButton(AlertButton::Face::brown, parent);
    decline_->setObjectName("decline");
    accept_ = new AlertButton(AlertButton::Face::cream, parent);
    accept_->setObjectName("accept");
    QObject::connect(decline_, &AlertButton::clicked, parent, [this] { decline(); });
    QObject::connect(accept_, &AlertButton::clicked, parent, [this] { accept(); });
    QObject::connect(parent, &UpdatePanel::escape, parent, [this] { decline(); });
    later_ = new QTimer(parent);
    later_->setSingleShot(true);
    later_->setInterval(std::chrono::milliseconds(250));
    QObject::connect(later_, &QTimer::timeout, parent, [this] { showPostponed(); });
}

FirmwareNoticeWindow::~FirmwareNoticeWindow() = default;

void FirmwareNoticeWindow::show(FirmwareNotice notice) {
    if (QApplication::activeModalWidget() != nullptr) {
        postponed_ = std::move(notice);
        later_->start();
        return;
    }
    postponed_.reset();
    const bool wasShown = window_->isVisible();
    const bool repair = notice.kind == FirmwareNotice::Kind::repair;
    notice_ = std::move(notice);
    picture_->setPicture(pictureOf(notice_.kind));
    headline_->setText(notice_.headline);
    detail_->setText(notice_.detail);
    decline_->setText(notice_.decline);
    accept_->setText(notice_.accept);
    accept_->setVisible(!notice_.accept.isEmpty());
    place(repair);
    if (!wasShown) {
        window_->centre();
    }
    window_->show();
    window_->raise();
    window_->setDefaultButton(notice_.accept.isEmpty() || repair ? decline_ : accept_);
}

void FirmwareNoticeWindow::showPostponed() {
    if (auto notice = std::exchange(postponed_, std::nullopt)) {
        show(std::move(*notice));
    }
}

void FirmwareNoticeWindow::place(bool repair) {
    const auto& layout = repair ? repairs : endings;
    const int width = layout.width - textLeft - side;
    const int text = stack(*detail_, stack(*headline_, layout.top, width) + layout.underHeadline, width);
    const int top = std::max(text + layout.overButtons, mark.bottom() + 1 + endings.overButtons);
    const auto size = accept_->sizeHint();
    int right = layout.width - side;
    if (!notice_.accept.isEmpty()) {
        kzq::place(*accept_, {{right - size.width(), top}, size});
        right -= size.width() + gap;
    }
    kzq::place(*decline_, {right - layout.declineWidth, top, layout.declineWidth, size.height()});
    kzq::place(*window_, {0, 0, layout.width, top + size.height() + underButtons});
}

void FirmwareNoticeWindow::accept() {
    close();
    if (const auto accepted = notice_.accepted) {
        accepted();
    }
}

void FirmwareNoticeWindow::decline() {
    close();
    if (const auto declined = notice_.declined) {
        declined();
    }
}

void FirmwareNoticeWindow::close() {
    postponed_.reset();
    window_->close();
}

std::optional<FirmwareNotice::Kind> FirmwareNoticeWindow::shown() const {
    if (postponed_) {
        return postponed_->kind;
    }
    return window_->isVisible() ? std::optional(notice_.kind) : std::nullopt;
}

QWidget& FirmwareNoticeWindow::window() {
    return *window_;
}

}  // namespace kzq
