// What assistive technology reads out of a row.

#include <string>
#include <vector>

#include "loops/spoken_length.h"
#include "slots/slot.h"
#include "ui/qt_words.h"
#include "ui/spoken.h"

namespace kzq {

namespace {

/// All of them, with commas in between.
QString listed(const std::vector<std::string>& parts) {
    std::string all;
    for (const auto& part : parts) {
        all = all.empty() ? part : words("%1, %2", all, part);
    }
    return toQt(all);
}

}  // namespace

/// Name, length, and what is going to happen or happens to it. `complete`: also what the controls in the row
/// say.
QString Slot::description(bool complete) const {
    std::vector<std::string> parts;
    if (const auto shown = field_->text(); shown != defaultName_ && !shown.isEmpty()) {
        parts.push_back(shown.toStdString());
    }
    if (canPlay() && length_.count != 0) {
        parts.push_back(spokenLength(length_));
    }
    if (isStaged()) {
        parts.push_back(occupied_ ? words("staged, replaces a loop") : words("staged"));
    } else if (complete && selected()) {
        parts.push_back(words("picked up"));
    }
    if (complete && sound_.ring != RowSound::Ring::play) {
        parts.push_back(sound_.plays() ? words("playing") : words("being read"));
    }
    return listed(parts);
}

void Slot::describe() {
    if (changes_ != 0 || !hasViews()) {
        return;
    }
    const auto loop = defaultName_.toStdString();
    callIt(*view_, defaultName_);
    describeAs(*view_, description(true));
    callIt(*numberLabel_, defaultName_);
    if (isExport()) {
        callIt(*button_, toQt(occupied_ ? words("Overwrite %1", loop) : words("Add %1", loop)));
    } else {
        callIt(*button_, toQt(words("%1, select", loop)));
    }
    describeAs(*button_, description(false));  // the row itself cannot have the focus
    callIt(*x_, toQt(words("Remove file from loop %1", number_)));
    callIt(*field_, toQt(words("%1 name", loop)));
    describeAs(*field_, field_->text());
    describeSound();
}

void Slot::describeSound() {
    const auto subject = isStaged() ? nameOfExport().value_or(defaultName_) : defaultName_;
    const auto what = subject.toStdString();
    const bool stops = sound_.ring != RowSound::Ring::play;
    callIt(*ring_, toQt(stops                ? words("Stop %1", what)
                        : length_.count == 0 ? words("Play %1", what)
                                             : words("Play %1, %2", what, spokenLength(length_))));
    describeAs(*ring_, sound_.trouble);
    callIt(*compare_, toQt(words("Compare with %1", defaultName_.toStdString())));
    if (sound_.compares) {
        describeAs(*compare_, toQt(words("%1 plays", sound_.other ? defaultName_.toStdString() : what)));
    }
}

}  // namespace kzq
