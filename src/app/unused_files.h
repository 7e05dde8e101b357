#pragma once

#include <QList>
#include <QUrl>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/teller.h"
#include "loops/slot_number.h"
#include "platform/fixed.h"

namespace kzq {

/// A file that was put on a row. `order` grows from one to the next: see LoopModel.
struct Drop {
    SlotNumber slot;
    QUrl file;
    std::uint64_t order = 0;
    bool quiet = false;  ///< that it is too large is no alert
};

/// Files that were not used. That stands in the status line until they are staged after all, on whatever row;
/// of one that was put on a row, also until a later file is staged there; and where another of the same drop
/// was used in its place, until that has been written. Main thread.
class UnusedFiles : Fixed {
  public:
    /// `teller` outlives it.
    explicit UnusedFiles(Teller& teller) : teller_(teller) {}

    /// `drop` is what put them on a row, if anything.
    void tell(const Told& told, QList<QUrl> files, const std::optional<Drop>& drop, Remedy remedy = {});
    void staged(const Drop& drop);
    void written(SlotNumber slot);

  private:
    struct Entry {
        std::string job;
        QList<QUrl> files;
        std::optional<Drop> drop;
        bool used = false;  ///< the file of `drop` is on its row
    };
    template <typename Condition>
    void settleIf(Condition over);

    Teller& teller_;
    std::vector<Entry> entries_;
    unsigned last_ = 0;
};

}  // namespace kzq
