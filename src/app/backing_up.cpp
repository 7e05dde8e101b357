#include "app/backing_up.h"

#include <algorithm>
#include <utility>

#include "app/app_parts.h"
#include "app/backup_flow.h"
#include "app/keep_flow.h"
#include "app/main_window.h"
#include "app/restore_flow.h"
#include "app/set_up.h"
#include "device/kzq7306.h"
#include "loops/capacity.h"
#include "operations/told_backup.h"

namespace kzq {

namespace {

constexpr auto comparingJob = "compare";

QString folderName(const std::filesystem::path& folder) {
    return QString::fromStdString(
        (folder.has_filename() ? folder : folder.parent_path()).filename().string());
}

}  // namespace

BackingUp::BackingUp(AppParts& parts)
    : parts_(parts), doubt_([link = parts.environment.link, asleep = parts.environment.asleep] {
          const auto looper = link();
          return Doubt{looper ? looper->doubts() : 0, asleep()};
      }) {}

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
    const auto chosen = parts_.environment.dialogs.chooseFolder("Choose");
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
    if (isOpen() && loops_ != parts_.model.table()) {
        startOver();
    }
}

/// Nothing that was compared counts any more.
void BackingUp::startOver() {
    shown_ = std::make_shared<int>();
    loops_ = parts_.model.table();
    known_.clear();
    since_ = doubt_();
    gaveUp_ = false;
    if (comparing_) {
        parts_.flows->stopYielding();
    }
    show();
    checkFiles();
    goOn();
}

/// Those of loops that the pedal has as well are read once more when they are compared.
void BackingUp::checkFiles() {
    const auto* const chosen = backup();
    if (!restores() || chosen == nullptr || !chosen->index) {
        return;
    }
    parts_.environment.executor.background(
        Priority::standard, [this, post = parts_.teller.poster(), shown = std::weak_ptr(shown_),
                             folder = chosen->snapshot.folder, loops = chosen->index->loops] {
            for (const auto& [slot, entry] : loops) {
                if (!shown.expired() && !folder.isIntact(entry)) {
                    post([this, shown, slot = slot] { learn(shown, slot, Compared::damaged); });
                }
            }
        });
}

void BackingUp::learn(const std::weak_ptr<int>& shown, SlotNumber slot, Compared compared) {
    if (!shown.expired()) {
        auto& known = known_[slot];
        known = known == Compared::damaged ? known : compared;
        show();
    }
}

BackupDiff BackingUp::uncompared() const {
    const auto* const chosen = backup();
    BackupDiff diff{BackupFolder({}), {}, {}};
    if (chosen == nullptr || !chosen->index) {
        return diff;
    }
    diff.folder = chosen->snapshot.folder;
    for (const auto& [slot, entry] : chosen->index->loops) {
        const auto* const loop = loops_.find(slot);
        if (loop != nullptr && chosen->index->hasLengthOf(slot, *loop) && !known_.contains(slot)) {
            diff.index.loops.emplace(slot, entry);
            diff.loops.put(slot, *loop);
        }
    }
    return diff;
}

void BackingUp::goOn() {
    if (!isOpen() || comparing_ || gaveUp_) {
        return;
    }
    if (const auto diff = uncompared(); !diff.loops.empty()) {
        comparing_ = parts_.flows->startYielding(
            transferPatience,
            [this, shown = std::weak_ptr(shown_), diff](Run& run) { compare(run, shown, diff); });
    }
}

/// On the run's thread.
void BackingUp::compare(Run& run, const std::weak_ptr<int>& shown, const BackupDiff& diff) {
    Teller::Work work = 0;
    Events events;
    const auto begun = run.ask([&] {
        work = parts_.teller.newWork();
        auto follow = parts_.teller.follower(work, run.poster(), "Comparing");
        events.begins = [follow](SlotNumber slot, Step /*step*/) mutable { follow(slot); };
        events.moved = [follow](SlotNumber slot, std::uint64_t /*bytes*/) mutable { follow(slot); };
        events.slot = [this, shown, post = run.poster()](const SlotOutcome& loop) {
            post([this, shown, slot = loop.slot, compared = comparedAs(loop)] {
                learn(shown, slot, compared);
            });
        };
        return !shown.expired();
    });
    Outcome outcome;
    if (begun.value_or(false) && run.pedal) {
        const auto awake = run.keepAwake(AwakeFor::transfer);
        outcome = runDiff(*run.pedal, diff, events);
    }
    run.ask([&] {
        run.turn.end();
        parts_.teller.idle(work);
        comparing_ = false;
        if (!shown.expired()) {
            gaveUp_ = !run.pedal || outcome.end.has_value();
            tellMissingRule(outcome);
        }
        goOn();
    });
}

void BackingUp::tellMissingRule(const Outcome& outcome) {
    if (const auto* const trouble = mainTrouble(outcome); trouble != nullptr && isMissingRule(*trouble)) {
        parts_.teller.tell(toldMissingRule(*trouble), comparingJob, settingUp(parts_, *trouble, {}));
    }
}

BackupComparison BackingUp::comparison() const {
    const auto* const chosen = backup();
    return {.changes = changesBetween(
                loops_, chosen != nullptr ? chosen->index.value_or(BackupIndex{}) : BackupIndex{}, known_),
            .pedalKnown = loops_.complete,
            .erases = panel_->erases()};
}

void BackingUp::show() {
    const auto shown = comparison();
    showOffers();
    panel_->setSlots(rowsOf(panel_->kind(), shown));
    panel_->setCounts(countsOf(panel_->kind(), shown));
    const auto problem = restores() ? problemWith(shown) : QString();
    const bool reading = reading_ != nullptr;
    const auto why = reading                             ? QString("Reading the folder")
                     : restores() && backup() == nullptr ? "There is no backup in this folder"
                     : !loops_.complete                  ? "No pedal connected"
                     : restores() && problem.isEmpty() && !mayChange(shown)
                         ? "The pedal has all of this backup"
                     : !restores() && loops_.empty() ? "The pedal has no loops"
                                                     : problem;
    panel_->setReady(why.isEmpty(), problem, why);
}

void BackingUp::showOffers() {
    std::vector<BackupOffer> offers;
    const auto fallback = reading_ != nullptr ? "reading\u2026" : "no backup yet";
    if (restores()) {
        const auto name = folderName(place().folder);
        std::ranges::transform(place().backups, std::back_inserter(offers),
                               [&name](const auto& each) { return offerOf(each, name); });
        const auto chosen = chosen_ < offers.size() ? offers[chosen_] : BackupOffer{name, fallback};
        panel_->setOffers(chosen, std::move(offers), chosen_);
        return;
    }
    for (const auto& each : places_) {
        const auto newest =
            std::ranges::find_if(each.backups, [](const auto& listed) { return listed.index.has_value(); });
        offers.push_back({folderName(each.folder),
                          newest == each.backups.end() ? fallback : "since " + dayAndTime(newest->stamp)});
    }
    const auto chosen = offers.at(at_);
    panel_->setOffers(chosen, std::move(offers), at_);
}

/// Why it cannot be restored.
QString BackingUp::problemWith(const BackupComparison& comparison) const {
    const auto* const chosen = backup();
    if (chosen == nullptr) {
        return {};
    }
    std::string reason = chosen->index ? "" : backupReason(chosen->index.error());
    for (const auto& change : comparison.changes) {
        if (change.kind == BackupChange::Kind::damaged && reason.empty()) {
            const auto& file = chosen->index->loops.at(change.slot).file;
            reason = backupReason(Trouble{Trouble::Kind::damaged, file});
        }
    }
    if (reason.empty() && afterRestore(comparison.changes, true).count > capacityFrames) {
        reason = backupReason(Trouble{Trouble::Kind::backupTooLong});
    }
    if (!reason.empty()) {
        return QString::fromStdString("This backup cannot be restored: " + reason);
    }
    return afterRestore(comparison.changes, comparison.erases).count > capacityFrames
               ? "The pedal has too little room for this backup beside its other loops"
               : QString();
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
    RestoreWish wish{
        .order = {.folder = chosen->snapshot.folder}, .seen = loops_, .since = since_, .doubt = doubt_};
    for (const auto& [slot, compared] : known_) {
        if (compared == Compared::same || compared == Compared::different) {
            wish.order.compared[slot] = compared == Compared::same;
        }
    }
    if (!panel_->erases()) {  // naming none would mean all
        for (const auto& [slot, entry] : chosen->index->loops) {
            wish.order.slots.push_back(slot);
        }
        if (wish.order.slots.empty()) {
            return;
        }
    }
    place().wanted = chosen->snapshot.name;
    beginRestore(parts_, std::move(wish), Copies::kept);
}

}  // namespace kzq
