#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "app/backing_up_rows.h"
#include "listening/shelf.h"
#include "loops/loops.h"
#include "operations/backup_diff.h"
#include "platform/fixed.h"

namespace kzq {

class Run;
struct AppParts;

/// File > Back Up and File > Restore: their panel, and what is read for it. Folders and files are read on
/// background threads. Loops of the same length are read from the pedal and compared one after the other,
/// beside the window; the panel shows what is known so far. Main thread.
class BackingUp : Fixed {
  public:
    /// `parts` outlive it.
    explicit BackingUp(AppParts& parts);
    ~BackingUp();

    /// `again`: what was chosen last is still chosen.
    void open(BackupPanel::Kind kind, bool again = false);
    /// The pedal's table may have changed, or the pedal may have come or left or been recorded over.
    void tableChanged();
    /// No operation lasts any more.
    void goOn();

    /// Null before it was opened.
    BackupPanel* panel() const { return panel_.get(); }

  private:
    /// What a folder holds, for the list of folders and for that of its backups.
    struct Place {
        std::filesystem::path folder;
        std::vector<ListedBackup> backups = {};
        std::string wanted = {};  ///< the name of the backup that was chosen
    };

    bool isOpen() const { return panel_ && panel_->isVisible(); }
    bool restores() const { return panel_->kind() == BackupPanel::Kind::restore; }
    Place& place() { return places_.at(at_); }
    /// Null for none.
    const ListedBackup* backup() const;
    void makePanel(BackupPanel::Kind kind);
    static Place placeIn(const std::filesystem::path& folder);
    void readPlaces();
    void chooseNewest();
    void chooseFolder();
    void chooseOffer(std::size_t offer);

    void startOver();
    void forgetCompared();
    void lookAfterSleep();
    void checkFiles();
    void learn(const std::weak_ptr<int>& counts, SlotNumber slot, Compared compared);
    BackupDiff uncompared() const;
    void compare(Run& run, const std::weak_ptr<int>& counts, const BackupDiff& diff);
    void tellMissingRule(const Outcome& outcome);

    BackupComparison comparison() const;
    void show();
    void showOffers();
    QString problemWith(const BackupComparison& comparison) const;
    void go();

    AppParts& parts_;
    const std::function<Doubt()> doubt_;
    std::unique_ptr<BackupPanel> panel_;
    std::vector<Place> places_;     ///< the usual folder, and those chosen in this run
    std::size_t at_ = 0;            ///< the one that is chosen
    std::size_t chosen_ = 0;        ///< of its backups: to restore, or the one before the next
    std::shared_ptr<int> reading_;  ///< while the places are read
    std::shared_ptr<int> shown_;    ///< renewed when what is read for the panel is of no use any more
    std::shared_ptr<int> counts_;   ///< renewed when what was compared counts no more
    Loops loops_;                   ///< as the panel shows them
    std::map<SlotNumber, Compared> known_;
    Doubt since_;             ///< when the first of that was learnt
    bool comparing_ = false;  ///< a flow is
    bool doubted_ = false;    ///< what was compared for this table was forgotten once
    bool gaveUp_ = false;     ///< the pedal cannot be read
};

}  // namespace kzq
