#include "carry_shots.h"

#include "rows.h"
#include "slots/drop_sign.h"
#include "stage.h"
#include "ui/strip.h"

namespace kzq::gallery {

namespace {

using Sign = DropSign::Kind;

struct Held {
    RowState row;
    DropSign sign;
};

const Held heldStates[] = {
    {{.caption = "fills"}, {Sign::fills, "tape choir Am", "1:20", {}}},
    {{.caption = "length not known"}, {Sign::fills, "upright pizz", {}, {}}},
    {{.caption = "replaces a loop", .occupied = true}, {Sign::replaces, "verse riff take 3", "0:31", {}}},
    {{.caption = "replaces a staged file", .name = "fill, brushes"},
     {Sign::fills, "brushes_94bpm_bar1-8", "0:20", {}}},
    {{.caption = "too long"}, {Sign::refused, "Whole rehearsal", "22:40", "too long"}},
    {{.caption = "too long for a loop's row, and so is the name", .occupied = true},
     {Sign::refused, "rehearsal 2 Nov, drums and upright bass", "22:40", "too long"}},
    {{.caption = "not readable"}, {Sign::refused, "cover", {}, "not readable"}},
};

std::vector<CarriedLoop> carriedLoops(std::size_t count) {
    const std::vector<CarriedLoop> some{{"Dusty Rhodes vamp", "0:42"},
                                        {"Loop 3", "0:16"},
                                        {"Night bus field recording, second attempt", "12:09"}};
    std::vector<CarriedLoop> result;
    while (result.size() < count) {
        result.push_back(some[result.size() % some.size()]);
    }
    return result;
}

}  // namespace

Shots carrying() {
    Rows maker;
    Shots shots;
    for (const auto& [state, sign] : heldStates) {
        const auto row = maker.row(7, Slot::exportContext, state, nullptr);
        row->setDropSign(sign);
        shots.push_back(shootInTray(QString("held: %1").arg(state.caption), *row->view()));
    }
    const auto compared =
        maker.row(7, Slot::exportContext, {.caption = "", .occupied = true, .name = "verse riff"}, nullptr);
    RowSound sound;
    sound.ring = RowSound::Ring::playing;
    sound.position = 0.4;
    sound.compares = true;
    compared->setSound(sound);
    compared->setDropSign(DropSign{Sign::replaces, "chorus", "0:20", {}});
    shots.push_back(shootInTray("held: over a row that plays and compares", *compared->view()));
    for (const std::size_t count : {1U, 2U, 3U, 12U}) {
        shots.push_back({QString("carried: %1").arg(count), Strip(carriedLoops(count), nullptr).picture()});
    }
    Strip waiting(carriedLoops(2), nullptr);
    waiting.setArrived(0.41);
    shots.push_back(shootInTray("carried: still being read", waiting));
    return shots;
}

}  // namespace kzq::gallery
