#pragma once

#include <QList>
#include <QUrl>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <utility>
#include <vector>

#include "app/app_environment.h"
#include "app/model/loop_model.h"
#include "app/unused_files.h"
#include "platform/fixed.h"

namespace kzq {

class Presenter;
class Teller;
struct Remedy;
class Slot;

/// Files on their way to the pedal: chosen or dropped, converted in the background, and then staged. It
/// belongs to the window; a conversion that ends later has no effect. Main thread.
class Staging : public std::enable_shared_from_this<Staging> {
  public:
    /// All outlive it. Create it with std::make_shared.
    Staging(const AppEnvironment& environment, LoopModel& model, Presenter& presenter, Teller& teller,
            UnusedFiles& unused)
        : environment_(environment), model_(model), presenter_(presenter), teller_(teller), unused_(unused) {}

    /// While one of these lives, what has been converted waits: a run sends what was staged at its start.
    class Hold : Fixed {
      public:
        explicit Hold(std::shared_ptr<Staging> staging) : staging_(std::move(staging)) { staging_->hold(); }
        ~Hold() { staging_->release(); }

      private:
        std::shared_ptr<Staging> staging_;
    };
    void hold() { ++holds_; }
    void release();

    /// Asks for a file for that row.
    void choose(const Slot& row);
    /// Only the first file counts.
    void dropped(const Slot& row, const QList<QUrl>& files);
    /// A file for whose row nobody asked: that it is too large is no alert.
    void put(SlotNumber slot, const QUrl& file) {
        convert({slot, file, model_.nextDrop(), true}, environment_.convert);
    }
    /// Those with neither a loop nor a file, nor one on its way.
    std::vector<SlotNumber> freeRows() const;

    /// Once, as soon as no file is on its way any more.
    void whenSettled(std::function<void()> then);

    /// A pedal has left, or comes, and what is staged is forgotten. `arrived` says so.
    void letGo(const std::map<SlotNumber, QUrl>& files);
    /// An export of these is under way, and offers itself what it misses; none at its end.
    void setUnderWay(const Exports& exports);
    void arrived();
    /// A remedy that puts files on their rows again.
    Remedy stagingAgain(std::map<SlotNumber, QUrl> files);

    /// The row is about to lose its file, and has lost it.
    void aboutToBeRemoved(const Slot& row) const;
    void removed(Slot& row);
    /// Of all that is staged, when the program ends.
    void removeWorkingCopies() const;

  private:
    using Convert = decltype(AppEnvironment::convert);
    void convert(SlotNumber slot, const QUrl& file) {
        convert({slot, file, model_.nextDrop()}, environment_.convert);
    }
    void convert(const Drop& drop, const Convert& how);
    void tellUnusable(const Drop& drop, const Trouble& trouble);
    bool useAnyway(const Drop& drop);
    void stage(const Drop& drop, const std::filesystem::path& copy);
    void sayStaged(const Drop& drop, const ExportInfo& info);
    void refuse(const Drop& drop, const ExportInfo& info);
    void work();
    void settle();
    void sayTooLarge();

    const AppEnvironment& environment_;
    LoopModel& model_;
    Presenter& presenter_;
    Teller& teller_;
    UnusedFiles& unused_;
    std::multiset<SlotNumber> expected_;  ///< by what is being converted, or waits
    unsigned holds_ = 0;
    std::deque<std::pair<Drop, std::filesystem::path>> waiting_;  ///< converted while held
    unsigned tooLarge_ = 0;                                       ///< alerts that are due
    bool alerting_ = false;
    std::function<void()> whenSettled_;
    std::map<SlotNumber, QUrl> letGo_;
    std::set<SlotNumber> underWay_;
};

}  // namespace kzq
