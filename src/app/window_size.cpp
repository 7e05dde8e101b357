#include "app/window_size.h"

#include <QEvent>
#include <QResizeEvent>
#include <QScreen>
#include <algorithm>
#include <chrono>
#include <cmath>

#include "ui/scale.h"
#include "ui/window.h"

namespace kzq {

namespace {

constexpr int smallest = 75;
constexpr int largest = 300;
constexpr QSize usualFrame(16, 44);  // until the window manager has put its own around the window
constexpr std::chrono::milliseconds pause(200);

double fraction(int part, int whole) {
    return static_cast<double>(part) / whole;
}

/// The most percent of `usual` that `room` has space for, as `sizeAt` rounds them.
int percentIn(int room, int usual) {
    return static_cast<int>(std::ceil((room + 0.5) * 100 / usual)) - 1;
}

}  // namespace

WindowSize::WindowSize(QWidget& window)
    : QObject(&window), window_(window), usual_(window.size()), settled_(usual_), smallest_(smallest) {
    window.setMinimumSize(sizeAt(smallest));
    window.setMaximumSize(sizeAt(largest));
    window.installEventFilter(this);
    rest_.setSingleShot(true);
    rest_.setInterval(pause);
    connect(&rest_, &QTimer::timeout, this, &WindowSize::settle);
}

QSize WindowSize::sizeAt(int percent) const {
    return {static_cast<int>(std::lround(usual_.width() * percent / 100.0)),
            static_cast<int>(std::lround(usual_.height() * percent / 100.0))};
}

/// `room` is without the window's frame.
void WindowSize::limit(QSize room, double ratio) {
    smallest_ = static_cast<int>(std::ceil(smallest / std::max(1.0, ratio)));
    smallest_ = std::min(fitting(room), smallest);  // which is not less than that
    window_.setMinimumSize(sizeAt(smallest_));
}

int WindowSize::fitting(QSize room) const {
    const int most =
        std::min(percentIn(room.width(), usual_.width()), percentIn(room.height(), usual_.height()));
    return std::clamp(most, smallest_, largest);
}

/// What a drag of an edge or a corner to `size` means: the side that moved more counts.
int WindowSize::nearest(QSize size) const {
    const auto wide = fraction(std::abs(size.width() - settled_.width()), usual_.width());
    const auto high = fraction(std::abs(size.height() - settled_.height()), usual_.height());
    const int meant =
        wide >= high ? percentIn(size.width(), usual_.width()) : percentIn(size.height(), usual_.height());
    return std::clamp(meant, smallest_, largest);
}

void WindowSize::set(int percent) {
    rest_.stop();
    if (window_.windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen)) {
        window_.showNormal();
    }
    wanted_ = std::clamp(percent, smallest_, largest);
    refused_ = {};
    settled_ = sizeAt(wanted_);
    Scale::ofProgram().setSize(wanted_ / 100.0);
    Scale::ofProgram().setOrigin(window_, {});
    window_.resize(settled_);
    keepOnScreen(window_, settled_);
}

/// What the screen has for the window, without its frame.
QSize WindowSize::room() const {
    const auto frame = window_.frameGeometry().size() - window_.size();
    return window_.screen()->availableGeometry().size() - (frame.isNull() ? usualFrame : frame);
}

bool WindowSize::fits(int percent) const {
    return percent <= fitting(room());
}

void WindowSize::fitScreen() {
    const auto frame = window_.frameGeometry().size() - window_.size();
    const auto screen = window_.screen()->availableGeometry();
    const auto inside = room();
    limit(inside, window_.devicePixelRatioF());
    set(fitting(inside));
    window_.move(screen.center() - QRect(QPoint(), settled_ + frame).center());
}

bool WindowSize::beginsWhole(QSize usual, QSize room) {
    const auto inside = room - usualFrame;
    return inside.width() >= usual.width() && inside.height() >= usual.height();
}

void WindowSize::begin(QSize room, double ratio) {
    limit(room - usualFrame, ratio);
    set(std::min(100, fitting(room - usualFrame)));
}

void WindowSize::settle() {
    const auto size = sizeAt(wanted_);
    const bool fixed = window_.windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen);
    if (fixed || size == window_.size() || size == refused_) {
        return;
    }
    refused_ = size;  // until it comes
    window_.resize(size);
}

bool WindowSize::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &window_ && event->type() == QEvent::Resize) {
        resized(static_cast<QResizeEvent*>(event)->size());
    } else if (watched == &window_ && event->type() == QEvent::ScreenChangeInternal) {
        limit(room(), window_.devicePixelRatioF());
    }
    return QObject::eventFilter(watched, event);
}

void WindowSize::resized(QSize size) {
    const bool whole = size == sizeAt(wanted_);
    if (whole) {
        settled_ = size;
        refused_ = {};
        rest_.stop();
    } else {
        wanted_ = nearest(size);
        rest_.start();
    }
    const int shown = whole ? wanted_ : fitting(size);
    const auto margin = size - sizeAt(shown);
    auto& scale = Scale::ofProgram();
    scale.setSize(shown / 100.0);
    scale.setOrigin(window_, {std::max(0, margin.width() / 2), std::max(0, margin.height() / 2)});
}

}  // namespace kzq
