#include "app/listening_engine.h"

#include <algorithm>
#include <utility>

#include "app/app_parts.h"
#include "loops/frames.h"
#include "words/words.h"

namespace kzq {

namespace {

/// What has to be there of a loop before it is heard: 64 KiB.
constexpr auto enough = Frames::ofBytes(std::uint64_t{64} * 1024);

}  // namespace

Listening::Engine::RowName Listening::Engine::nameOf(const Slot& row) {
    return {row.context(), slotOf(row)};
}

void Listening::Engine::clicked(const RowName& row) {
    if (isNow(row)) {
        stopSound();
        if (isWanted(row)) {
            dropWanted();
        }
    } else if (isWanted(row)) {
        dropWanted();
    } else {
        want(choose(row, !isStaged(row)));
    }
}

void Listening::Engine::compare(const RowName& row) {
    if (isWanted(row) && isNow(row)) {
        dropWanted();
    } else if (isNow(row) && wouldReplace(row)) {
        want(choose(row, !now->choice.loop));
    }
}

void Listening::Engine::stop() {
    wanted.reset();
    stopSound();
    showAll();
}

bool Listening::Engine::isStaged(const RowName& row) const {
    return row.context != Slot::importContext && parts.model.staging().contains(row.slot);
}

bool Listening::Engine::wouldReplace(const RowName& row) const {
    return isStaged(row) && parts.model.table().contains(row.slot);
}

std::optional<Listening::Engine::Choice> Listening::Engine::choose(const RowName& row, bool loop) const {
    if (!loop) {
        return Choice{.row = row, .source = parts.model.staging().at(row.slot).source};
    }
    const auto* const found = parts.model.table().find(row.slot);
    return found == nullptr ? std::nullopt : std::optional(Choice{.row = row, .loop = true, .table = *found});
}

bool Listening::Engine::stands(const Choice& choice) const {
    if (!choice.loop) {
        const auto staged = parts.model.staging().find(choice.row.slot);
        return staged != parts.model.staging().end() && staged->second.source == choice.source;
    }
    const auto* const loop = parts.model.table().find(choice.row.slot);
    return loop != nullptr && *loop == choice.table;
}

std::shared_ptr<Sound> Listening::Engine::audible(const Choice& choice) const {
    if (!choice.loop) {
        const auto file = files.find(choice.row.slot);
        return file == files.end() ? nullptr : file->second.sound;
    }
    auto sound = shelf.find(choice.row.slot);
    if (!sound) {
        sound = reader->arriving(choice.row.slot);
    }
    if (!sound) {
        return nullptr;
    }
    // the other sound of the row that plays goes on from there
    const auto from = isNow(choice.row) ? player->place()->at.count % sound->length().count : 0;
    const Frames needed{std::min(from + enough.count, sound->length().count)};
    return sound->there() >= needed ? sound : nullptr;
}

bool Listening::Engine::isForListening(SlotNumber slot) const {
    const auto isIt = [slot](const Choice& choice) { return choice.loop && choice.row.slot == slot; };
    return (wanted && isIt(*wanted)) || (now && isIt(now->choice));
}

bool Listening::Engine::canBeHeard() const {
    return player && parts.environment.sound->trouble().empty();
}

void Listening::Engine::want(const std::optional<Choice>& choice) {
    if (!choice || !canBeHeard()) {
        return;
    }
    wanted = choice;
    serve();
    if (wanted && wanted->loop) {
        reader->read(wanted->row.slot);
    }
    showAll();
    follow();
}

void Listening::Engine::dropWanted() {
    const auto slot = wanted->row.slot;
    const bool reads = std::exchange(wanted, std::nullopt)->loop;
    if (reads && !isForListening(slot) && !(fetch && fetch->wants(slot))) {
        reader->leave(slot);
    }
    showSlot(slot);
}

void Listening::Engine::serve() {
    if (wanted) {
        if (auto sound = audible(*wanted)) {
            begin(*std::exchange(wanted, std::nullopt), std::move(sound));
        }
    }
}

void Listening::Engine::begin(const Choice& choice, std::shared_ptr<Sound> sound) {
    const auto length = sound->length();
    if (isNow(choice.row)) {
        player->change(std::move(sound));
        now->choice = choice;
    } else {
        stopSound();
        parts.bringBack.stopSound();
        now = Now{choice, parts.teller.newWork({words("Stop"), [weak = weak_from_this()] {
                                                    if (const auto self = weak.lock()) {
                                                        self->stop();
                                                    }
                                                    return true;
                                                }})};
        player->play(std::move(sound));
    }
    sayPlaying(length);
    showSlot(choice.row.slot);
    follow();
}

void Listening::Engine::sayPlaying(Frames length) const {
    const auto& [row, loop, table, source] = now->choice;
    const auto file = parts.rows.exportRow(row.slot).nameOfExport().value_or(QString()).toStdString();
    const auto what = loop ? loopName(row.slot) : file;
    parts.teller.working(now->work, words("Playing %1, %2", what, clockText(length)),
                         words("Playing %1", what));
}

void Listening::Engine::stopSound() {
    if (const auto was = std::exchange(now, std::nullopt)) {
        player->stop();
        parts.teller.idle(was->work);
        showSlot(was->choice.row.slot);
    }
}

}  // namespace kzq
