// What assistive technology reads out of a row.

#include <QStringList>

#include "loops/spoken_length.h"
#include "slots/slot.h"
#include "ui/spoken.h"

namespace kzq {

namespace {

QString spoken(Frames length) {
    return QString::fromStdString(spokenLength(length));
}

}  // namespace

/// Name, length, and what is going to happen or happens to it. `complete`: also what the controls in the row
/// say.
QString Slot::description(bool complete) const {
    QStringList words;
    if (const auto shown = field_->text(); shown != defaultName_ && !shown.isEmpty()) {
        words << shown;
    }
    if (canPlay() && length_.count != 0) {
        words << spoken(length_);
    }
    if (isStaged()) {
        words << QString::fromLatin1(occupied_ ? "staged, replaces a loop" : "staged");
    } else if (complete && selected()) {
        words << QString::fromLatin1("picked up");
    }
    if (complete && sound_.ring != RowSound::Ring::play) {
        words << QString::fromLatin1(sound_.plays() ? "playing" : "being read");
    }
    return words.join(QString::fromLatin1(", "));
}

void Slot::describe() {
    if (changes_ != 0 || !hasViews()) {
        return;
    }
    const auto words = [this](const char* text) { return QString::fromLatin1(text).arg(number_); };
    callIt(*view_, defaultName_);
    describeAs(*view_, description(true));
    callIt(*numberLabel_, words("Loop %1"));
    if (isExport()) {
        callIt(*button_, words(occupied_ ? "Overwrite Loop %1" : "Add Loop %1"));
    } else {
        callIt(*button_, words("Loop %1, select"));
    }
    describeAs(*button_, description(false));  // the row itself cannot have the focus
    callIt(*x_, words("Remove file from loop %1"));
    callIt(*field_, words("Loop %1 name"));
    describeAs(*field_, field_->text());
    describeSound();
}

void Slot::describeSound() {
    const auto subject = isStaged() ? nameOfExport().value_or(defaultName_) : defaultName_;
    const auto play = length_.count == 0 ? QString::fromLatin1("Play %1").arg(subject)
                                         : QString::fromLatin1("Play %1, %2").arg(subject, spoken(length_));
    const bool stops = sound_.ring != RowSound::Ring::play;
    callIt(*ring_, stops ? QString::fromLatin1("Stop %1").arg(subject) : play);
    describeAs(*ring_, sound_.trouble);
    callIt(*compare_, QString::fromLatin1("Compare with %1").arg(defaultName_));
    if (sound_.compares) {
        describeAs(*compare_, QString::fromLatin1("%1 plays").arg(sound_.other ? defaultName_ : subject));
    }
}

}  // namespace kzq
