#pragma once

#include <QList>
#include <QUrl>
#include <cstdint>
#include <filesystem>
#include <memory>

#include "app/app_environment.h"
#include "app/model/loop_model.h"

namespace kzq {

class Presenter;
class Slot;

/// Files on their way to the pedal: chosen or dropped, converted in the background, and then staged. It
/// belongs to the window; a conversion that ends later has no effect. Main thread.
class Staging : public std::enable_shared_from_this<Staging> {
  public:
    /// All outlive it. Create it with std::make_shared.
    Staging(const AppEnvironment& environment, LoopModel& model, Presenter& presenter)
        : environment_(environment), model_(model), presenter_(presenter) {}

    /// Asks for a file for that row.
    void choose(const Slot& row);
    /// Only the first file counts.
    void dropped(const Slot& row, const QList<QUrl>& files);

    /// The row is about to lose its file, and has lost it.
    void aboutToBeRemoved(const Slot& row) const;
    void removed(Slot& row);
    /// Of all that is staged, when the program ends.
    void removeWorkingCopies() const;

  private:
    /// A file that was put on a row.
    struct Drop {
        SlotNumber slot;
        QUrl file;
        std::uint64_t order = 0;
    };
    void convert(SlotNumber slot, const QUrl& file);
    void stage(const Drop& drop, const std::filesystem::path& copy);

    const AppEnvironment& environment_;
    LoopModel& model_;
    Presenter& presenter_;
};

}  // namespace kzq
