#include "app/backing_up.h"

#include <algorithm>
#include <utility>

#include "app/app_parts.h"
#include "app/backup_flow.h"
#include "app/doubt.h"
#include "app/keep_flow.h"
#include "app/main_window.h"
#include "app/restore_flow.h"
#include "words/words.h"

namespace kzq {

BackingUp::BackingUp(AppParts& parts) : parts_(parts), doubt_(doubtOf(parts.environment)) {}

BackingUp::~BackingUp() = default;

void BackingUp::open(BackupPanel::Kind kind, bool again) {
    if (parts_.window.shield() != nullptr || isOpen()) {
        return;
    }
    makePanel(kind);
    if (places_.empty()) {
        places_.push_back({parts_.environment.backups});
    }
    for (auto& each : places_) {
        each = {each.folder, {}, again ? each.wanted : ""};
    }
    readPlaces();
    startOver();
    panel_->show();
    panel_->raise();
    panel_->activateWindow();
}

void BackingUp::makePanel(BackupPanel::Kind kind) {
    panel_ = std::make_unique<BackupPanel>(kind, &parts_.window);
    auto* const panel = panel_.get();
    QObject::connect(panel, &BackupPanel::chosen, panel, [this](std::size_t offer) { chooseOffer(offer); });
    QObject::connect(panel, &BackupPanel::folderWanted, panel, [this] { chooseFolder(); });
    QObject::connect(panel, &BackupPanel::eraseChanged, panel, [this] { show(); });
    QObject::connect(panel, &BackupPanel::wanted, panel, [this] { go(); });
    QObject::connect(panel, &QDialog::finished, panel, [this] {
        reading_.reset();
        shown_.reset();
        counts_.reset();
        if (comparing_) {
            parts_.flows->stopYielding();
        }
    });
}

BackingUp::Place BackingUp::placeIn(const std::filesystem::path& folder) {
    Place place{folder};
    const auto whole = folder.has_filename() ? folder : folder.parent_path();
    if (Generations::isDated(whole.filename().string()) && BackupFolder(whole).isComplete()) {
        place = {whole.parent_path(), {}, whole.filename().string()};  // one backup of several
    }
    place.backups = listedBackups(Generations(place.folder));
    return place;
}

void BackingUp::readPlaces() {
    reading_ = std::make_shared<int>();
    parts_.environment.executor.background(
        Priority::standard,
        [this, post = parts_.teller.poster(), places = places_, reading = std::weak_ptr(reading_)]() mutable {
            for (auto& place : places) {
                if (!reading.expired()) {
                    auto read = placeIn(place.folder);
                    read.wanted = read.wanted.empty() ? place.wanted : read.wanted;
                    place = std::move(read);
                }
            }
            post([this, reading, places = std::move(places)]() mutable {
                if (!reading.expired()) {
                    reading_.reset();
                    places_ = std::move(places);
                    chooseNewest();
                }
            });
        });
}

/// The one that was chosen before, or the newest that can be used.
void BackingUp::chooseNewest() {
    const auto& [folder, backups, wanted] = place();
    auto found = backups.end();
    if (restores()) {
        found = std::ranges::find(backups, wanted, [](const auto& each) { return each.snapshot.name; });
    }
    if (found == backups.end()) {
        found = std::ranges::find_if(backups, [](const auto& each) { return each.index.has_value(); });
    }
    if (found == backups.end()) {
        found = backups.begin();
    }
    chosen_ = static_cast<std::size_t>(found - backups.begin());
    startOver();
}

void BackingUp::chooseFolder() {
    const auto post = parts_.teller.poster();
    const auto chosen = parts_.environment.dialogs.chooseFolder(
        restores() ? words("Choose a folder with backups") : words("Choose a folder for the backup"),
        words("Choose"));
    if (chosen.answer != panelCancelled && !chosen.path.empty()) {
        post([this, folder = chosen.path] {  // the window may have gone under the chooser
            if (isOpen()) {
                const auto known = std::ranges::find(places_, folder, &Place::folder);
                at_ = static_cast<std::size_t>(known - places_.begin());
                if (known == places_.end()) {
                    places_.push_back({folder});
                }
                readPlaces();
                startOver();
            }
        });
    }
}

void BackingUp::chooseOffer(std::size_t offer) {
    if (!restores()) {
        at_ = offer;
        chooseNewest();
        return;
    }
    chosen_ = offer;
    place().wanted = place().backups.at(offer).snapshot.name;
    startOver();
}

const ListedBackup* BackingUp::backup() const {
    const auto& backups = places_.at(at_).backups;
    return chosen_ < backups.size() ? &backups[chosen_] : nullptr;
}

void BackingUp::tableChanged() {
    if (!isOpen()) {
        return;
    }
    const bool compared = comparing_ || std::ranges::any_of(known_, [](const auto& entry) {
                              return entry.second != Compared::damaged;
                          });
    if (loops_ != parts_.model.table()) {
        startOver();
    } else if (compared && !doubt_().isStill(since_)) {
        const bool byPedal = doubt_().pedal != since_.pedal;
        forgetCompared();
        gaveUp_ = byPedal && std::exchange(doubted_, true);  // reading may be what moves the pedal's sequence
        show();
        goOn();
    }
}

void BackingUp::go() {
    const auto* const chosen = backup();
    if (!restores()) {
        beginBackup(parts_, place().folder);
        return;
    }
    if (chosen == nullptr || !chosen->index) {
        return;
    }
    RestoreOrder order{.folder = chosen->snapshot.folder};
    for (const auto& [slot, compared] : known_) {
        if (compared == Compared::same || compared == Compared::different) {
            order.compared[slot] = compared == Compared::same;
        }
    }
    if (!panel_->erases()) {  // naming none would mean all
        for (const auto& [slot, entry] : chosen->index->loops) {
            order.slots.push_back(slot);
        }
        if (order.slots.empty()) {
            return;
        }
    }
    place().wanted = chosen->snapshot.name;
    beginRestore(parts_,
                 {.order = std::move(order),
                  .index = *chosen->index,
                  .seen = loops_,
                  .since = since_,
                  .doubt = doubt_},
                 Copies::kept);
}

}  // namespace kzq
