// What a row shows of its loop's sound, and what the user does with it.

#include <algorithm>
#include <array>
#include <utility>

#include "slots/slot.h"
#include "ui/figures.h"
#include "ui/fonts.h"
#include "ui/palette.h"
#include "ui/qt_words.h"
#include "ui/scale.h"

namespace kzq {

namespace {

constexpr std::uint64_t millisecondsPerSecond = 1000;

QString clockOf(Frames length) {
    return QString::fromStdString(clockText(length));
}

/// Whether more than the playhead and the time has changed.
bool looksDifferent(const RowSound& before, const RowSound& after) {
    return before.ring != after.ring || before.plays() != after.plays() ||
           before.compares != after.compares || before.other != after.other ||
           before.trouble != after.trouble || (before.peaks == nullptr) != (after.peaks == nullptr);
}

}  // namespace

void Slot::setSound(const RowSound& sound) {
    const auto before = std::exchange(sound_, sound);
    if (background_ != nullptr) {
        background_->update();
    }
    if (looksDifferent(before, sound_)) {
        showSound();
    }
}

void Slot::setLength(Frames length) {
    if (std::exchange(length_, length) != length) {
        showSound();
    }
}

void Slot::setTempo(unsigned tempo) {
    if (view_ != nullptr) {
        view_->setToolTip(tempo == 0 ? QString() : toQt(words("Tempo %1", tempo)));
    }
}

void Slot::setTouched(bool touched) {
    touched_ = touched;
    showRing();
}

bool Slot::canPlay() const {
    return occupied_ || isStaged();
}

void Slot::playClicked() {
    if (delegate_ != nullptr && canPlay()) {
        delegate_->playClickedForSlot(*this);
    }
}

void Slot::compareClicked() {
    if (delegate_ != nullptr && sound_.compares) {
        delegate_->compareClickedForSlot(*this);
    }
}

RowGround Slot::ground() const {
    const auto image = background_ != nullptr ? background_->image() : QString();
    if (image.endsWith(QLatin1String("_rename"))) {
        return RowGround::console;
    }
    const bool tape = image.endsWith(QLatin1String("_On")) || image.endsWith(QLatin1String("_overwrite"));
    return tape ? RowGround::tape : RowGround::groove;
}

QString Slot::clock() const {
    if (length_.count == 0 || !canPlay()) {
        return {};
    }
    if (sound_.plays() && ground() != RowGround::console) {
        const auto played = static_cast<std::uint64_t>(std::max<std::int64_t>(0, sound_.played.count()));
        return QString::fromStdString(clockText(played / millisecondsPerSecond));
    }
    return clockOf(length_);
}

/// Nothing moves when the row begins to play or changes to B: a yellow row always has room for both names and
/// both lengths.
RowLayout Slot::layout() const {
    const bool yellow = isStaged() && occupied_;
    RowContents contents{.ground = ground(), .plays = sound_.plays()};
    if (field_ != nullptr) {
        contents.nameLeft = placeOf(*field_).x();
        contents.nameWidth =
            std::max(advanceOf(field_->text(), textFont()), yellow ? advanceOf(defaultName_, textFont()) : 0);
    }
    if (canPlay() && length_.count != 0) {
        contents.clockWidth =
            std::max(figuresWidth(clockOf(length_)), yellow ? figuresWidth(clockOf({samples_})) : 0);
    }
    contents.waveform =
        canPlay() && (sound_.peaks != nullptr || sound_.compares || sound_.ring == RowSound::Ring::arriving);
    return layOutRow(contents);
}

QString Slot::nameInSight() const {
    return showsOther() ? defaultName_ : field_ != nullptr ? field_->text() : QString();
}

QColor Slot::nameColour(const QColor& resting) const {
    const bool lit = showsOther() || (sound_.plays() && ground() == RowGround::groove);
    return lit ? KZQWhite() : resting;
}

/// While the views are deleted, some are gone before the others.
bool Slot::hasViews() const {
    if (view_ == nullptr) {
        return false;
    }
    const auto views =
        std::to_array<const QObject*>({numberLabel_, ring_, button_, background_, x_, field_, compare_});
    return std::ranges::all_of(views, [](const auto* view) { return view != nullptr; });
}

void Slot::showSound() {
    if (!hasViews()) {
        return;
    }
    const bool compares = sound_.compares && !dropSign_;  // which lies over it
    if ((!compares && compare_->hasFocus()) || (!canPlay() && ring_->hasFocus())) {
        button_->setFocus(Qt::TabFocusReason);  // else the focus would jump to the next row
    }
    compare_->setVisible(compares);
    compare_->setOther(sound_.other);
    ring_->setVisible(canPlay());
    ring_->setToolTip(sound_.trouble);
    background_->update();
    field_->update();
    showRing();
    describe();
}

void Slot::showRing() {
    if (hasViews()) {
        numberLabel_->setVisible(ring_->pictureName().isEmpty());
        ring_->update();
    }
}

}  // namespace kzq
