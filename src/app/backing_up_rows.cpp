#include "app/backing_up_rows.h"

#include <QDateTime>
#include <algorithm>

#include "app/stamp_time.h"
#include "loops/facts.h"
#include "loops/spoken_length.h"
#include "operations/told_backup.h"
#include "platform/free_space.h"
#include "ui/qt_words.h"
#include "ui/times.h"

namespace kzq {

namespace {

using Change = BackupChange::Kind;
using Kind = BackupPanel::Kind;
using Look = BackupSlot::Look;

/// How a slot looks, the loop that stands in its row, and what is said of it.
struct Fate {
    Look look = Look::none;
    std::optional<Frames> length = {};
    std::string words = {};
    std::string said = {};  ///< if a screen reader gets something else
};

Fate unchanged(const BackupChange& change, bool pedalKnown) {
    if (!pedalKnown) {
        return {Look::absent, change.inBackup, words("in the backup")};
    }
    return change.kind == Change::same ? Fate{Look::rest, change.onPedal, words("same")}
                                       : Fate{Look::rest, change.onPedal, words("same length"),
                                              words("the same length, not compared")};
}

Fate fateInRestore(const BackupChange& change, const BackupComparison& comparison) {
    switch (change.kind) {
        case Change::nothing:
            return {};
        case Change::same:
        case Change::sameLength:
            return unchanged(change, true);
        case Change::changed:
            return {Look::replaces, change.inBackup, words("replaces %1", clockText(*change.onPedal)),
                    words("replaces a loop of %1", spokenLength(*change.onPedal))};
        case Change::onlyOnPedal:
            return comparison.erases ? Fate{Look::erased, change.onPedal, words("erased")}
                                     : Fate{Look::rest, change.onPedal, words("stays")};
        case Change::onlyInBackup:
            return comparison.pedalKnown ? Fate{Look::fresh, change.inBackup, words("new")}
                                         : unchanged(change, false);
        case Change::damaged:
            return {Look::damaged, change.inBackup, words("damaged"), words("damaged in the backup")};
    }
    return {};
}

/// Of a slot of which nothing is known to stand on the pedal.
Fate onlyInBackup(const BackupChange& change, const BackupComparison& comparison) {
    return comparison.pedalKnown ? Fate{Look::absent, change.inBackup, words("only in the backup")}
                                 : unchanged(change, false);
}

Fate fateInBackup(const BackupChange& change, const BackupComparison& comparison) {
    switch (change.kind) {
        case Change::nothing:
            return {};
        case Change::same:
        case Change::sameLength:
            return unchanged(change, true);
        case Change::changed:
            return {Look::saved, change.onPedal, words("changed")};
        case Change::onlyOnPedal:
            return {Look::saved, change.onPedal, words("new")};
        case Change::onlyInBackup:
            return onlyInBackup(change, comparison);
        case Change::damaged:
            return change.onPedal ? Fate{Look::saved, change.onPedal, words("saved again"),
                                         words("saved again, as it is damaged in the backup")}
                                  : onlyInBackup(change, comparison);
    }
    return {};
}

BackupSlot rowOf(SlotNumber slot, const Fate& fate) {
    const auto& said = fate.said.empty() ? fate.words : fate.said;
    const auto spoken = fate.length ? words("Slot %1, %2, %3, %4", slot.number(), loopName(slot),
                                            spokenLength(*fate.length), said)
                                    : words("Slot %1, no loop", slot.number());
    return {fate.look, fate.length ? toQt(clockText(*fate.length)) : QString(), toQt(fate.words),
            toQt(spoken)};
}

Fate fateOf(Kind kind, const BackupChange& change, const BackupComparison& comparison) {
    return kind == Kind::restore ? fateInRestore(change, comparison) : fateInBackup(change, comparison);
}

std::uint64_t bytesSaved(const BackupComparison& comparison) {
    std::uint64_t bytes = 0;
    for (const auto& change : comparison.changes) {
        const bool saved = fateInBackup(change, comparison).look == Look::saved;
        bytes += saved ? change.onPedal->bytes() : 0;
    }
    return bytes;
}

}  // namespace

std::vector<BackupSlot> rowsOf(Kind kind, const BackupComparison& comparison) {
    std::vector<BackupSlot> rows;
    for (const auto& change : comparison.changes) {
        rows.push_back(rowOf(change.slot, fateOf(kind, change, comparison)));
    }
    return rows;
}

std::vector<BackupPanel::Count> countsOf(Kind kind, const BackupComparison& comparison) {
    if (!comparison.pedalKnown) {
        return {};
    }
    const auto many = [&comparison](Change wanted) {
        return static_cast<std::size_t>(std::ranges::count(comparison.changes, wanted, &BackupChange::kind));
    };
    std::vector<BackupPanel::Count> counts;
    const auto add = [&counts](Look look, std::size_t count, auto text) {
        if (count != 0) {
            counts.emplace_back(look, toQt(text(count)));
        }
    };
    add(Look::rest, many(Change::same), [kind](auto n) {
        return kind == Kind::restore ? words(n, "%n same", "%n same")
                                     : words(n, "%n same as then", "%n same as then");
    });
    add(Look::rest, many(Change::sameLength),
        [](auto n) { return words(n, "%n same length", "%n same length"); });
    if (kind == Kind::restore) {
        add(Look::fresh, many(Change::onlyInBackup), [](auto n) { return words(n, "%n new", "%n new"); });
        add(Look::replaces, many(Change::changed),
            [](auto n) { return words(n, "%n replaced", "%n replaced"); });
        add(Look::erased, comparison.erases ? many(Change::onlyOnPedal) : 0,
            [](auto n) { return words(n, "%n erased", "%n erased"); });
        add(Look::damaged, many(Change::damaged),
            [](auto n) { return words(n, "%n damaged", "%n damaged"); });
    } else {
        const auto saved = std::ranges::count_if(comparison.changes, [&comparison](const auto& change) {
            return fateInBackup(change, comparison).look == Look::saved;
        });
        add(Look::saved, static_cast<std::size_t>(saved), [&comparison](auto n) {
            return words(n, "%n new or changed, %1", "%n new or changed, %1",
                         sizeText(bytesSaved(comparison)));
        });
    }
    return counts;
}

bool mayChange(const BackupComparison& comparison) {
    return std::ranges::any_of(comparison.changes, [&comparison](const auto& change) {
        return change.kind == Change::sameLength || change.kind == Change::changed ||
               change.kind == Change::onlyInBackup ||
               (change.kind == Change::onlyOnPedal && comparison.erases);
    });
}

QString dayAndTime(const std::string& stamp) {
    return dated(timeOfStamp(stamp), words("d MMM yyyy, HH:mm"));
}

BackupOffer offerOf(const ListedBackup& backup, const QString& folder) {
    const auto made = dayAndTime(backup.stamp);
    const auto& given = backup.snapshot.name;
    const bool dated = Generations::isDated(given);
    BackupOffer offer{.name = dated                           ? made
                              : given == Generations::undated ? folder
                                                              : QString::fromStdString(given)};
    if (!backup.index) {
        offer.usable = false;
        offer.detail = QString::fromStdString(backupReason(backup.index.error()));
    } else {
        const auto loops = QString::fromStdString(loopsText(backup.index->loops.size()));
        offer.detail =
            dated || made.isEmpty() ? loops : toQt(words("%1, %2", made.toStdString(), loops.toStdString()));
    }
    return offer;
}

}  // namespace kzq
