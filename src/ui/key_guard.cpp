#include "ui/key_guard.h"

#include <QCoreApplication>
#include <utility>

namespace kzq {

namespace {

/// Keyboards wait for longer than that before they repeat, and taps are shorter.
constexpr quint64 longestTap = 100;
/// No keyboard waits for longer before it repeats.
constexpr quint64 longestSilence = 2'000;
/// Between a repeat's release and its press when the machine is busy. Nobody's finger is that fast.
constexpr quint64 oneMoment = 20;
/// Until the press of a repeat has come.
constexpr auto pressFollows = std::chrono::milliseconds(40);
/// What it takes to see that there is an alert.
constexpr auto reading = std::chrono::milliseconds(400);

quint32 keyOf(const QKeyEvent& event) {
    return event.nativeScanCode() != 0 ? event.nativeScanCode() : static_cast<quint32>(event.key());
}

/// The window system counts in 32 bits.
quint64 between(quint64 earlier, quint64 later) {
    return static_cast<quint32>(later - earlier);
}

}  // namespace

bool KeyGuard::Last::repeats(quint32 next, quint64 time) const {
    return next == key && released && between(*released, time) <= oneMoment &&
           between(pressed, *released) >= longestTap;
}

bool KeyGuard::Last::goesOn(quint32 next, quint64 time) const {
    return next == key && between(heard, time) <= longestSilence;
}

KeyGuard::Verdict KeyGuard::judge(QWindow& window, const QKeyEvent& event) {
    const auto key = keyOf(event);
    if (std::exchange(coming_, false)) {
        return letGo(key);
    }
    return event.type() == QEvent::KeyPress ? pressed(key, event) : released(window, key, event);
}

KeyGuard::Verdict KeyGuard::pressed(quint32 key, const QKeyEvent& event) {
    const bool repeat = event.isAutoRepeat() || last_.repeats(key, event.timestamp());
    if (repeat) {
        kept_.reset();  // it was no release
    } else {
        release();
        if (down_.contains(key) && !last_.goesOn(key, event.timestamp())) {
            letGo(key);
        }
        last_ = {key, event.timestamp(), event.timestamp(), std::nullopt};
    }
    last_.heard = event.timestamp();
    down_.insert(key);
    if (!alertTakes(key, true)) {
        return Verdict::nothing;
    }
    return repeat ? Verdict::repeat : Verdict::act;
}

KeyGuard::Verdict KeyGuard::released(QWindow& window, quint32 key, const QKeyEvent& event) {
    if (event.isAutoRepeat()) {
        if (key == last_.key) {
            last_.released = event.timestamp();
        }
        return alertTakes(key, true) ? Verdict::repeat : Verdict::nothing;
    }
    release();
    if (key != last_.key) {
        return letGo(key);
    }
    last_.released = event.timestamp();
    if (between(last_.pressed, event.timestamp()) < longestTap) {
        return letGo(key);
    }
    kept_ = std::make_shared<Kept>(Kept{&window, std::unique_ptr<QKeyEvent>(event.clone())});
    executor_.mainAfter(pressFollows, [this, kept = std::weak_ptr(kept_)] {
        if (const auto still = kept.lock(); still && still == kept_) {
            release();
        }
    });
    return Verdict::nothing;
}

void KeyGuard::release() {
    const auto kept = std::exchange(kept_, nullptr);
    if (!kept) {
        return;
    }
    if (kept->window) {
        coming_ = true;
        QCoreApplication::sendEvent(kept->window, kept->event.get());
        coming_ = false;
    } else {
        letGo(keyOf(*kept->event));
    }
}

KeyGuard::Verdict KeyGuard::letGo(quint32 key) {
    down_.erase(key);
    return alertTakes(key, false) ? Verdict::act : Verdict::nothing;
}

bool KeyGuard::alertTakes(quint32 key, bool pressed) const {
    return alerts_.empty() || alerts_.back()->takes(key, pressed);
}

KeyGuard::OpenAlert::OpenAlert(KeyGuard& guard) : guard_(guard), deaf_(guard.down_) {
    guard_.alerts_.push_back(this);
}

KeyGuard::OpenAlert::~OpenAlert() {
    std::erase(guard_.alerts_, this);
}

void KeyGuard::OpenAlert::appeared() {
    if (!appeared_) {
        appeared_ = guard_.executor_.now();
    }
}

bool KeyGuard::OpenAlert::takes(quint32 key, bool pressed) {
    if (!pressed) {
        return deaf_.erase(key) == 0;
    }
    if (!appeared_ || guard_.executor_.now() < *appeared_ + reading) {
        deaf_.insert(key);
    }
    return !deaf_.contains(key);
}

}  // namespace kzq
