#include <utility>

#include "app/app_parts.h"
#include "app/doubt.h"
#include "app/listening_engine.h"
#include "words/words.h"

namespace kzq {

Listening::Engine::Engine(AppParts& theParts) : parts(theParts), doubt(doubtOf(theParts.environment)) {
    if (auto* const output = parts.environment.sound) {
        player = std::make_unique<Player>(*output);
    }
}

Listening::Engine::~Engine() {
    if (auto* const output = parts.environment.sound) {
        output->setListener({});
    }
}

void Listening::Engine::listen() {
    const auto weak = weak_from_this();
    reader = std::make_shared<LoopReader>(parts, doubt, [weak](SlotNumber slot, auto read) {
        if (const auto self = weak.lock()) {
            self->ended(slot, std::move(read));
        }
    });
    if (auto* const output = parts.environment.sound) {
        output->setListener([&executor = parts.environment.executor, weak] {
            executor.main([weak] {
                if (const auto self = weak.lock()) {
                    if (!self->canBeHeard()) {
                        self->stop();
                    }
                    self->showAll();
                    self->parts.bringBack.deviceChanged();
                }
            });
        });
    }
}

void Listening::Engine::rowsChanged() {
    if (const auto before = std::exchange(pedal, parts.model.pedal()); before != pedal) {
        stop();
        reader->leaveWaiting();
        endFetch({Trouble::Kind::unplugged});
    }
    if (parts.model.table().complete) {
        shelf.compareWith(parts.model.table());
    }
    if (now && !stands(now->choice)) {
        stopSound();
    }
    if (wanted && !stands(*wanted)) {
        dropWanted();
    }
    followFiles();
    showAll();
}

void Listening::Engine::ended(SlotNumber slot, Result<LoopReader::Read> read) {
    const auto goesOn = [this](SlotNumber of) { return shelf.find(of) || reader->reads(of); };
    const bool came = read.has_value();
    auto trouble = came ? std::nullopt : std::optional(read.error());
    if (came) {
        shelf.put(slot, read->loop, std::move(read->sound), read->begun);
        if (!shelf.find(slot)) {
            trouble = Trouble{Trouble::Kind::changedWhileRead};
        }
    } else if (now && now->choice.loop && now->choice.row.slot == slot) {
        stopSound();
    }
    if (trouble) {
        tellMissed(slot, *trouble, came);
    }
    if (wanted && wanted->loop && !goesOn(wanted->row.slot)) {
        wanted.reset();
    }
    const auto current = fetch;
    if (current && current->due() == slot && trouble && trouble->kind != Trouble::Kind::cancelled) {
        current->came(Trouble(*trouble));
    } else if (current && current->due() && !goesOn(*current->due())) {
        endFetch({Trouble::Kind::cancelled});
    }
    fetchNext();
    serve();
    showAll();
}

/// Who fetches it says so; and a loop that is heard already goes on.
void Listening::Engine::tellMissed(SlotNumber slot, const Trouble& trouble, bool read) const {
    const bool fetched = fetch && fetch->due() == slot;
    const bool heard = read && !(wanted && wanted->loop && wanted->row.slot == slot);
    if (!fetched && !heard && trouble.kind != Trouble::Kind::cancelled) {
        reader->tell(slot, trouble);
    }
}

void Listening::Engine::setAwaited(bool on) {
    const auto slot = reader->current();
    if (on && slot && awaited == 0) {
        awaited = parts.teller.newWork();
        parts.teller.working(awaited, words("Waiting for the read of loop %1 to stop\u2026", slot->number()),
                             words("Waiting for the read of loop %1 to stop", slot->number()));
    } else if (!on) {
        parts.teller.idle(std::exchange(awaited, 0));
    }
}

void Listening::Engine::fetchNext() {
    while (fetch && fetch->due()) {
        const auto slot = *fetch->due();
        const auto copy = shelf.find(slot);
        if (!copy) {
            reader->read(slot);
            follow();
            return;
        }
        const auto current = fetch;
        current->came(copy->file());
    }
    fetch.reset();
}

void Listening::Engine::endFetch(const Trouble& why) {
    if (const auto ended = std::exchange(fetch, nullptr)) {
        const auto slot = ended->due();
        if (slot && !isForListening(*slot)) {
            reader->leave(*slot);
        }
        ended->end(why);
    }
}

void Listening::Engine::follow() {
    constexpr auto between = std::chrono::milliseconds(50);
    if (!ticking && (now || wanted || fetch || reader->busy())) {
        ticking = true;
        parts.environment.executor.mainAfter(between, [weak = weak_from_this()] {
            if (const auto self = weak.lock()) {
                self->ticking = false;
                self->tick();
            }
        });
    }
}

void Listening::Engine::tick() {
    serve();
    if (now) {
        show(now->choice.row);
    }
    if (const auto slot = reader->current()) {
        showSlot(*slot);
        const auto sound = reader->arriving(*slot);
        if (const auto current = fetch; sound && current && current->due() == slot) {
            current->arrived(sound->there());
        }
    }
    follow();
}

/// Staged files are looked at before they are to be heard.
void Listening::Engine::followFiles() {
    const auto& staged = parts.model.staging();
    std::erase_if(files, [&](const auto& entry) {
        const auto found = staged.find(entry.first);
        return found == staged.end() || found->second.source != entry.second.source;
    });
    for (const auto& [slot, info] : staged) {
        if (files.try_emplace(slot, File{info.source}).second) {
            look(slot, info.source);
        }
    }
}

void Listening::Engine::look(SlotNumber slot, const std::filesystem::path& source) {
    auto& executor = parts.environment.executor;
    executor.background(Priority::standard, [&executor, weak = weak_from_this(), slot, source] {
        auto sound = Sound::ofFile(source);
        executor.main([weak, slot, source, sound = std::move(sound)] {
            const auto self = weak.lock();
            const auto found = self ? self->files.find(slot) : decltype(self->files.end())();
            if (self && sound && found != self->files.end() && found->second.source == source) {
                found->second.sound = *sound;
                self->serve();
                self->showSlot(slot);
            }
        });
    });
}

}  // namespace kzq
