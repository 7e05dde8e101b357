#include "ui/panels/progress.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QWindow>
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "ui/fitted_label.h"
#include "ui/focus_ring.h"
#include "ui/fonts.h"
#include "ui/palette.h"
#include "ui/panels/accessible_panels.h"
#include "ui/panels/label_style.h"
#include "ui/qt_words.h"
#include "ui/scale.h"
#include "ui/view_width.h"
#include "ui_Progress.h"

namespace kzq {
namespace {

constexpr int usualFieldType = 13;
constexpr std::array amounts{english("%1B"), english("%1KB"), english("%1MB")};
constexpr std::array unitSizes{1.0, 1e3, 1e6};

/// Rounded half away from zero, and clamped to the range of the unsigned type.
std::uint64_t rounded(double value) {
    constexpr double tooMuch = 18446744073709551616.0;
    const double whole = std::round(value);
    if (!(whole > 0)) {
        return 0;
    }
    return whole < tooMuch ? static_cast<std::uint64_t>(whole) : std::numeric_limits<std::uint64_t>::max();
}

std::uint32_t unitOf(std::uint64_t bytes) {
    return bytes > 999'999 ? 2 : bytes > 999 ? 1 : 0;
}

std::string amount(std::uint64_t bytes, std::uint32_t unit) {
    const auto figure = unit == 0 ? bytes : rounded(static_cast<double>(bytes) / unitSizes.at(unit));
    return words(amounts.at(unit), figure);
}

/// Measuring costs as much as writing, and what comes many times a second is mostly there already.
void putInto(QLabel* field, const QString& words) {
    if (field != nullptr && field->text() != words) {
        setFitted(*field, words, usualFieldType);
    }
}

}  // namespace

struct Progress::Parts {
    QPointer<QLabel> subtitleField;
    QPointer<QLabel> timeField;
    QPointer<QLabel> footerField;
    QPointer<ProgressTrack> total;
    QPointer<QWidget> bar;
};

std::unique_ptr<Progress> Progress::progress(std::function<void()> cancelTransfer) {
    installAccessiblePanels();
    std::unique_ptr<Progress> progress(new Progress(std::move(cancelTransfer)));
    progress->setPercent(0);
    return progress;
}

Progress::Progress(std::function<void()> cancelTransfer)
    : cancelTransfer_(std::move(cancelTransfer)), window_(std::make_unique<ProgressGround>()) {
    Ui::Progress ui;
    ui.setupUi(window_.get());
    parts_ = std::make_unique<Parts>(Parts{ui.subtitleField, ui.timeField, ui.footerField, ui.total, ui.bar});
    styleLabel(*ui.subtitleField, KZQWhite(), textFont());
    styleLabel(*ui.timeField, creamColor(), textFont());
    styleLabel(*ui.footerField, creamColor(), textFont());
    ui.total->setAccessibleName(toQt(words("Transferred")));
    ui.Cancel->setAccessibleName(toQt(words("Cancel")));
    ui.leftReel->setPicture(QStringLiteral("Progress_reel"));
    ui.rightReel->setPicture(QStringLiteral("Progress_reel"));
    connect(ui.Cancel, &LowerButton::clicked, this, &Progress::cancel);

    window_->setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                            Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint | Qt::WindowStaysOnTopHint);
    window_->setAttribute(Qt::WA_QuitOnClose, false);
    window_->setFixedSize(window_->size());
    window_->setFocusPolicy(
        Qt::ClickFocus);  // else Cancel would have it at once, and a stray Space would cancel
    window_->installEventFilter(this);
    new FocusRing(window_.get());  // owned by the page
    Scale::ofProgram().take(*window_);
}

Progress::~Progress() {
    window_->removeEventFilter(this);  // a window destroyed while open sends itself a close event
}

void Progress::setTitle(const QString& title) {
    window_->setWindowTitle(title);
}

QString Progress::title() const {
    return window_->windowTitle();
}

void Progress::setSubtitle(const QString& subtitle) {
    if (parts_->subtitleField) {
        setFitted(*parts_->subtitleField, subtitle, usualFieldType);
    }
}

QString Progress::subtitle() const {
    return parts_->subtitleField ? parts_->subtitleField->text() : QString();
}

void Progress::setFooter(const QString& footer) {
    putInto(parts_->footerField, footer);
}

QString Progress::footer() const {
    return parts_->footerField ? parts_->footerField->text() : QString();
}

void Progress::setTimeLeft(const QString& words) {
    putInto(parts_->timeField, words);
}

QString Progress::timeLeft() const {
    return parts_->timeField ? parts_->timeField->text() : QString();
}

void Progress::setTotalBytes(std::uint64_t bytes) {
    totalBytes_ = bytes;
    totalUnits_ = unitOf(bytes);
}

void Progress::setPercent(double fraction) {
    const double shown = std::isfinite(fraction) ? fraction : 0;  // 0 of 0 bytes is not a number
    percent_ = std::min(1.0, shown);
    showFraction(shown);
}

/// Shows more than 1 as such: the two figures and the bar show what was really transferred.
void Progress::showFraction(double fraction) {
    if (parts_->bar) {
        setWidth(*parts_->bar, parts_->total ? width(*parts_->total) * fraction : 0);
    }
    const auto done = rounded(static_cast<double>(totalBytes_) * fraction);
    const auto percent = rounded(fraction * 100);
    if (parts_->total) {
        parts_->total->setValue(static_cast<int>(std::min<std::uint64_t>(percent, 100)));
    }
    setFooter(toQt(words("%1 of %2 \u2013 %3%", amount(done, done == 0 ? totalUnits_ : unitOf(done)),
                         amount(totalBytes_, totalUnits_), percent)));
}

void Progress::placeOver(QWidget& mainWindow) {
    window_->move(mainWindow.window()->pos());
    window_->winId();  // makes the native window that can be kept above another
    if (auto* below = mainWindow.window()->windowHandle()) {
        window_->windowHandle()->setTransientParent(below);
    }
}

void Progress::showWindow() {
    window_->setFocus();
    window_->show();
    window_->raise();
    window_->activateWindow();
}

bool Progress::isVisible() const {
    return window_->isVisible();
}

void Progress::close() {
    closing_ = true;
    window_->close();
    closing_ = false;
}

void Progress::cancel() {
    cancelTransfer_();
    close();
}

bool Progress::eventFilter(QObject* watched, QEvent* event) {
    if (watched != window_.get()) {
        return QObject::eventFilter(watched, event);
    }
    if (event->type() == QEvent::Close && !closing_) {
        cancelTransfer_();
    } else if (event->type() == QEvent::KeyPress) {
        const auto& keys = static_cast<const QKeyEvent&>(*event);  // NOLINT(*-static-cast-downcast)
        if (keys.key() == Qt::Key_Escape) {
            if (!keys.isAutoRepeat()) {  // held since before the panel opened, it was not meant for it
                cancel();
            }
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace kzq
