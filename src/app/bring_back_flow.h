#pragma once

#include <QDateTime>
#include <QUrl>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "app/copy_sound.h"
#include "operations/kept_copies.h"
#include "platform/fixed.h"

namespace kzq {

class BringBack;
struct AppParts;

/// "erased today 14:02", "replaced yesterday 21:15", "erased Tue 20:51", "erased 2 Nov 19:20": when a copy
/// was kept, and what for.
std::string fateOf(const KeptCopy& copy, const QDateTime& now);

/// The copies of what was erased or replaced, and the way back for them. Main thread.
class BringingBack : Fixed {
  public:
    /// `parts` outlive it.
    explicit BringingBack(AppParts& parts);
    ~BringingBack();

    /// Shows the panel, with the copies of the last time selected.
    void open();
    /// The pedal's table has changed, or the pedal has come or left.
    void tableChanged();
    /// Turns Keep Copies on or off. False, which is told: it stays as it was.
    bool keep(bool on);
    /// Says what it does, in the status line.
    void explain(bool shown);

    /// The sound of a copy; that of the window is none of its business.
    void stopSound() { sound_.stop(); }
    /// The sound device has come or gone.
    void deviceChanged();
    /// Null before it was opened.
    BringBack* panel() const { return panel_.get(); }

  private:
    void show(std::vector<KeptCopy> copies, std::uint64_t size);
    void make();
    void readPeaks();
    QString noSound() const;
    void bring(const std::map<std::size_t, unsigned>& targets);
    void exportThem(const std::map<SlotNumber, QUrl>& files, unsigned pedal);

    AppParts& parts_;
    std::unique_ptr<BringBack> panel_;
    std::vector<KeptCopy> copies_;  ///< as the panel shows them
    std::shared_ptr<int> shown_;    ///< for what is read for the panel: renewed with the copies
    CopySound sound_;
    std::uint64_t hint_ = 0;  ///< a Teller::Work
};

}  // namespace kzq
