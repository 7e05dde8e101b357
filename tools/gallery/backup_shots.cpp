#include "backup_shots.h"

#include "app/backing_up_rows.h"
#include "stage.h"
#include "ui/alert_button.h"
#include "ui/alert_panel.h"
#include "ui/check_box.h"

namespace kzq::gallery {

namespace {

using BackupKind = BackupPanel::Kind;
using Change = BackupChange::Kind;

const std::vector<BackupOffer> offers{
    {"21 Nov 2026, 14:10", "13 loops"},
    {"Sunday rehearsal", "16 Nov 2026, 19:20, 14 loops"},
    {"2 Nov 2026, 21:05", "9 loops"},
    {"1 Nov 2026, 10:00", "its index is damaged", false},
    {"Before the tour with a name that is far too long for the list", "28 Oct 2026, 10:31, 20 loops"}};

Frames seconds(std::uint64_t count) {
    return {count * framesPerSecond};
}

/// As the pedal and its backup are in the picture of the look.
BackupComparison comparison() {
    BackupComparison all{.changes = {}, .pedalKnown = true};
    const std::map<unsigned, std::uint64_t> loops{{1, 42},  {2, 67},   {3, 16},  {6, 24},
                                                  {10, 35}, {11, 182}, {13, 19}, {15, 110},
                                                  {17, 51}, {18, 12},  {20, 33}};
    for (const auto slot : allSlots()) {
        BackupChange change{.slot = slot};
        if (const auto same = loops.find(slot.number()); same != loops.end()) {
            change = {slot, Change::same, seconds(same->second), seconds(same->second)};
        } else if (slot.number() == 5) {
            change = {slot, Change::onlyInBackup, {}, seconds(151)};
        } else if (slot.number() == 14) {
            change = {slot, Change::onlyInBackup, {}, seconds(108)};
        } else if (slot.number() == 7) {
            change = {slot, Change::changed, seconds(58), seconds(8)};
        } else if (slot.number() == 12) {
            change = {slot, Change::onlyOnPedal, seconds(67), {}};
        }
        all.changes.push_back(change);
    }
    return all;
}

class BackupScene {
  public:
    explicit BackupScene(BackupKind kind, const BackupComparison& shown = comparison())
        : panel_(kind, nullptr) {
        if (kind == BackupKind::restore) {
            panel_.setOffers(offers[1], offers, 1);
        } else {
            panel_.setOffers({"7306 backups", "since 16 Nov 2026, 19:20"}, {{"7306 backups"}}, 0);
        }
        panel_.setSlots(rowsOf(kind, shown));
        panel_.setCounts(countsOf(kind, shown));
        panel_.setReady(true, {}, {});
    }
    BackupPanel& panel() { return panel_; }
    Shot picture(const QString& caption) {
        panel_.setAttribute(Qt::WA_DontShowOnScreen);
        panel_.show();
        return shoot(caption, panel_);
    }

  private:
    BackupPanel panel_;
};

Shot spoilt() {
    auto shown = comparison();
    shown.changes.at(0).kind = Change::sameLength;
    shown.changes.at(2).kind = Change::damaged;
    BackupScene scene(BackupKind::restore, shown);
    const QString problem = "This backup cannot be restored: Loop 3.wav is missing or has been changed";
    scene.panel().setReady(false, problem, problem);
    return scene.picture("Damaged; one loop not compared yet");
}

Shot away(BackupKind kind) {
    auto shown = comparison();
    shown.pedalKnown = false;
    for (auto& change : shown.changes) {
        change.kind = change.inBackup ? Change::onlyInBackup : Change::nothing;
    }
    BackupScene scene(kind, shown);
    scene.panel().setReady(false, {}, "No pedal connected");
    return scene.picture("Without a pedal");
}

}  // namespace

Shots backups() {
    auto erasing = comparison();
    erasing.erases = true;
    BackupScene erase(BackupKind::restore, erasing);
    erase.panel().eraseLoops().setChecked(true);
    BackupScene list(BackupKind::restore);
    list.panel().show();
    list.panel().tape().click();
    BackupScene pressed(BackupKind::backUp);
    touch(pressed.panel().acceptButton(), Hand::hovering);
    auto first = comparison();
    for (auto& change : first.changes) {
        change = {change.slot, change.onPedal ? Change::onlyOnPedal : Change::nothing, change.onPedal, {}};
    }
    BackupScene none(BackupKind::backUp, first);
    none.panel().setOffers({"7306 backups", "no backup yet"}, {{"7306 backups"}}, 0);
    AlertPanel question(
        {.headline = "Restoring replaces 1 loop and erases 1 loop on the 7306. Would you like to "
                     "continue?",
         .finePrint =
             "To be replaced: loop 7. To be erased: loop 12. Both are copied first; Edit > Bring Back "
             "returns them.",
         .buttons = {{"Restore"}, {"Cancel"}},
         .destroys = true},
        nullptr);
    return {erase.picture("Restore, with erase"),
            BackupScene(BackupKind::restore).picture("Restore"),
            BackupScene(BackupKind::backUp).picture("Back Up"),
            list.picture("Backups"),
            spoilt(),
            away(BackupKind::restore),
            away(BackupKind::backUp),
            pressed.picture("Back Up, hovered"),
            none.picture("The first backup"),
            shoot("The question", question)};
}

}  // namespace kzq::gallery
