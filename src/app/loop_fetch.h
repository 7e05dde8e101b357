#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <optional>

#include "app/listening.h"
#include "loops/frames.h"
#include "loops/loops.h"
#include "platform/fixed.h"

namespace kzq {

/// Copies that somebody waits for, in order. Main thread; each function may start another fetch.
class LoopFetch : Fixed {
  public:
    LoopFetch(const std::vector<SlotNumber>& slots, const Loops& table, Listening::Copy copy,
              std::function<void(double)> moved);

    /// The one that is due; nothing once all have come.
    std::optional<SlotNumber> due() const;
    bool wants(SlotNumber slot) const;
    void came(Result<std::filesystem::path> copy);
    /// So much of the one that is due has arrived.
    void arrived(Frames frames);
    /// The rest comes as this trouble.
    void end(const Trouble& trouble);

  private:
    void tellMoved(Frames frames);

    std::deque<std::pair<SlotNumber, Frames>> left_;
    const Listening::Copy copy_;
    const std::function<void(double)> moved_;
    Frames total_;
    Frames done_;
    double told_ = -1;
};

}  // namespace kzq
