// What assistive technology reads out of a row.

#include "loops/spoken_length.h"
#include "slots/slot.h"

namespace kzq {

namespace {

// Each is announced as a change, even if it is the same again.

void call(QWidget& part, const QString& name) {
    if (part.accessibleName() != name) {
        part.setAccessibleName(name);
    }
}

void describeAs(QWidget& part, const QString& description) {
    if (part.accessibleDescription() != description) {
        part.setAccessibleDescription(description);
    }
}

}  // namespace

void Slot::describe() {
    const auto words = [this](const char* text) { return QString::fromLatin1(text).arg(number_); };
    const bool timed = canPlay() && length_.count != 0;
    const auto spoken = timed ? QString::fromStdString(spokenLength(length_)) : QString();
    call(*view_, defaultName_);
    describeAs(*view_, spoken);
    call(*numberLabel_, words("Loop %1"));
    if (isExport()) {
        call(*button_, words(occupied_ ? "Overwrite Loop %1" : "Add Loop %1"));
        // the name itself cannot have the focus
        describeAs(*button_, timed ? field_->text() + QLatin1String(", ") + spoken : field_->text());
    } else {
        call(*button_, words("Loop %1, select"));
        describeAs(*button_, spoken);
    }
    call(*x_, words("Remove file from loop %1"));
    call(*field_, words("Loop %1 name"));
    describeAs(*field_, field_->text());
    describeSound(spoken);
}

void Slot::describeSound(const QString& length) {
    const auto subject = isStaged() ? nameOfExport().value_or(defaultName_) : defaultName_;
    const auto play = length.isEmpty() ? QString::fromLatin1("Play %1").arg(subject)
                                       : QString::fromLatin1("Play %1, %2").arg(subject, length);
    const bool stops = sound_.ring != RowSound::Ring::play;
    call(*ring_, stops ? QString::fromLatin1("Stop %1").arg(subject) : play);
    describeAs(*ring_, sound_.trouble);
    call(*compare_, QString::fromLatin1("Compare with %1").arg(defaultName_));
    describeAs(*compare_, QString::fromLatin1("%1 plays").arg(sound_.other ? defaultName_ : subject));
}

}  // namespace kzq
