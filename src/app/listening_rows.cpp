#include <algorithm>

#include "app/app_parts.h"
#include "app/listening_engine.h"
#include "loops/facts.h"
#include "ui/qt_words.h"

namespace kzq {

std::shared_ptr<const Peaks> Listening::Engine::peaksOfLoop(SlotNumber slot) const {
    auto sound = std::shared_ptr<const Sound>(shelf.find(slot));
    if (!sound) {
        sound = reader->arriving(slot);
    }
    if (!sound && now && now->choice.loop && now->choice.row.slot == slot) {
        sound = player->place()->sound;  // as long as it is heard
    }
    return sound ? sound->peaks() : nullptr;
}

std::shared_ptr<const Peaks> Listening::Engine::peaksOfFile(SlotNumber slot) const {
    const auto file = files.find(slot);
    return file != files.end() && file->second.sound ? file->second.sound->peaks() : nullptr;
}

RowSound Listening::Engine::soundOf(const RowName& row) const {
    RowSound sound;
    sound.peaks = isStaged(row) ? peaksOfFile(row.slot) : peaksOfLoop(row.slot);
    if (!canBeHeard()) {
        sound.trouble = toQt(troubleOf(parts.environment.sound));
    }
    if (!isNow(row)) {
        sound.ring = isWanted(row) ? RowSound::Ring::arriving : RowSound::Ring::play;
        return sound;
    }
    const auto place = *player->place();
    const std::chrono::duration<double> played(static_cast<double>(place.at.count) / framesPerSecond);
    sound.ring = RowSound::Ring::playing;
    sound.position = static_cast<double>(place.at.count) / static_cast<double>(place.sound->length().count);
    sound.played = std::chrono::duration_cast<std::chrono::milliseconds>(played);
    if (wouldReplace(row)) {
        sound.compares = true;
        sound.other = now->choice.loop;
        sound.otherPeaks = peaksOfLoop(row.slot);
        sound.otherLength = {parts.model.table().find(row.slot)->samples};
    }
    return sound;
}

void Listening::Engine::show(const RowName& row) const {
    if (auto* const view = parts.rows.find(row.slot.number(), row.context)) {
        view->setSound(soundOf(row));
    }
}

void Listening::Engine::showSlot(SlotNumber slot) const {
    show({Slot::importContext, slot});
    show({Slot::exportContext, slot});
}

void Listening::Engine::showAll() const {
    std::ranges::for_each(allSlots(), [this](SlotNumber slot) { showSlot(slot); });
}

}  // namespace kzq
