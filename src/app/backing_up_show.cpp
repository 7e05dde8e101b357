#include <algorithm>
#include <iterator>
#include <utility>

#include "app/backing_up.h"
#include "loops/capacity.h"
#include "operations/told_backup.h"
#include "ui/qt_words.h"

namespace kzq {

namespace {

QString folderName(const std::filesystem::path& folder) {
    return QString::fromStdString(
        (folder.has_filename() ? folder : folder.parent_path()).filename().string());
}

}  // namespace

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
    const auto why = reading                             ? toQt(words("Reading the folder"))
                     : restores() && backup() == nullptr ? toQt(words("There is no backup in this folder"))
                     : !loops_.complete                  ? toQt(words("No pedal connected"))
                     : restores() && problem.isEmpty() && !mayChange(shown)
                         ? toQt(words("The pedal already holds everything in this backup"))
                     : !restores() && loops_.empty() ? toQt(words("The pedal has no loops"))
                                                     : problem;
    panel_->setReady(why.isEmpty(), problem, why);
}

void BackingUp::showOffers() {
    std::vector<BackupOffer> offers;
    const auto fallback = toQt(reading_ != nullptr ? words("reading\u2026") : words("no backup yet"));
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
                          newest == each.backups.end()
                              ? fallback
                              : toQt(words("since %1", dayAndTime(newest->stamp).toStdString()))});
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
        return toQt(words("This backup cannot be restored: %1", reason));
    }
    return afterRestore(comparison.changes, comparison.erases).count > capacityFrames
               ? toQt(
                     words("There is not enough room on the pedal for this backup alongside its other loops"))
               : QString();
}

}  // namespace kzq
