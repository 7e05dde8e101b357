#include "sound_rows.h"

#include <cmath>
#include <functional>

#include "loops/facts.h"
#include "rows.h"
#include "slots/slot.h"
#include "slots/slot_compare.h"
#include "slots/slot_ring.h"
#include "stage.h"

namespace kzq::gallery {

namespace {

using Ring = RowSound::Ring;
using Part = std::function<QWidget*(const Slot&)>;

constexpr RowState inGroove{.caption = "", .occupied = true};
constexpr RowState onTape{.caption = "", .occupied = true, .selected = true};
constexpr RowState longName{
    .caption = "", .occupied = true, .selected = true, .name = "Chorus pad, long tail"};
constexpr RowState overlong{
    .caption = "", .occupied = true, .selected = true, .name = "Night bus field recording, last tram"};
constexpr RowState renaming{
    .caption = "", .occupied = true, .selected = true, .name = "Slow waltz bass", .renaming = true};
constexpr RowState fresh{.caption = "", .name = "tape choir Am"};
constexpr RowState replacing{.caption = "", .occupied = true, .name = "verse riff"};

RowSound readWhole() {
    RowSound sound;
    sound.peaks = somePeaks();
    return sound;
}

RowSound arriving() {
    RowSound sound;
    sound.ring = Ring::arriving;
    sound.peaks = somePeaks(0.6);
    return sound;
}

RowSound playing(double position) {
    auto sound = readWhole();
    sound.ring = Ring::playing;
    sound.position = position;
    sound.played = std::chrono::milliseconds(static_cast<int>(position * 151'000));
    return sound;
}

RowSound comparing(bool other, double known = 1) {
    auto sound = playing(other ? 0.7 : 0.4);
    sound.compares = true;
    sound.other = other;
    sound.otherPeaks = somePeaks(known);
    sound.otherLength = {67ULL * framesPerSecond};
    return sound;
}

class Sheet {
  public:
    void add(const char* caption, const RowState& state, std::int32_t context, const RowSound& sound,
             Hand hand = Hand::none, const Part& part = {}) {
        const auto row = maker_.row(5, context, state, nullptr);
        row->setLength({151ULL * framesPerSecond});
        row->setSound(sound);
        row->setTouched(part != nullptr);
        auto* const touched = part ? part(*row) : nullptr;
        if (touched != nullptr) {
            touch(*touched, hand);
        }
        shots.push_back(shootInTray(caption, *row->view(), hand == Hand::keyboard ? touched : nullptr));
    }

    Shots shots;

  private:
    Rows maker_;
};

QWidget* ringOf(const Slot& row) {
    return row.ring();
}

}  // namespace

std::shared_ptr<const Peaks> somePeaks(double share) {
    auto peaks = std::make_shared<Peaks>();
    peaks->known = static_cast<std::size_t>(share * Peaks::columns);
    for (std::size_t column = 0; column < Peaks::columns; ++column) {
        const double loud = 250 * std::exp(-static_cast<double>(column % 60) / 30);
        const double accent = column % 120 < 60 ? 1 : 0.7;
        peaks->heights.at(column) = static_cast<std::uint8_t>(loud * accent);
    }
    return peaks;
}

Shots listening() {
    Sheet sheet;
    constexpr auto import = Slot::importContext;
    sheet.add("never heard: only its length", inGroove, import, {});
    sheet.add("heard: its waveform", inGroove, import, readWhole());
    sheet.add("pointer on the row", inGroove, import, readWhole(), Hand::none, ringOf);
    sheet.add("pointer on the ring", inGroove, import, readWhole(), Hand::hovering, ringOf);
    sheet.add("pressed", inGroove, import, readWhole(), Hand::pressing, ringOf);
    sheet.add("keyboard on the ring", inGroove, import, readWhole(), Hand::keyboard, ringOf);
    sheet.add("keyboard on the row", inGroove, import, readWhole(), Hand::keyboard,
              [](const Slot& row) -> QWidget* { return row.button(); });
    sheet.add("arriving from the pedal", inGroove, import, arriving());
    sheet.add("playing", inGroove, import, playing(0.62));
    sheet.add("playing, pointer on the disc", inGroove, import, playing(0.62), Hand::hovering, ringOf);
    sheet.add("picked up", onTape, import, readWhole());
    sheet.add("picked up, arriving", onTape, import, arriving());
    sheet.add("picked up, playing", onTape, import, playing(0.35));
    sheet.add("the name gives way while playing", longName, import, playing(0.35));
    sheet.add("no room for a waveform", longName, import, readWhole());
    sheet.add("cut before the length", overlong, import, readWhole());
    sheet.add("renaming", renaming, import, readWhole());
    return sheet.shots;
}

Shots comparing() {
    Sheet sheet;
    constexpr auto exports = Slot::exportContext;
    sheet.add("a file for an empty slot", fresh, exports, readWhole());
    sheet.add("the file plays", fresh, exports, playing(0.4));
    sheet.add("replaces a loop", replacing, exports, readWhole());
    sheet.add("A plays: the file", replacing, exports, comparing(false));
    sheet.add("A plays, B arrives", replacing, exports, comparing(false, 0.5));
    sheet.add("B plays: the loop it replaces", replacing, exports, comparing(true));
    const auto key = [](const Slot& row) -> QWidget* { return row.compare(); };
    sheet.add("pointer on A/B", replacing, exports, comparing(true), Hand::hovering, key);
    sheet.add("keyboard on A/B", replacing, exports, comparing(true), Hand::keyboard, key);
    return sheet.shots;
}

}  // namespace kzq::gallery
