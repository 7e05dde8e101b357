#pragma once

#include <optional>

#include "device/kzq7306.h"

namespace kzq::ctl {

/// What came of asking the pedal what it holds.
struct StatusReading {
    std::optional<Status> status;
    bool answers = false;  ///< the pedal still answered at the end
};

/// Reads the full status; one that does not come whole in three tries gives none. Waits for the pedal.
StatusReading readStatus(KZQ7306& looper);

/// Whether the pedal answers. A failed request reads as zeros, which no living pedal says to the stage query.
/// Waits for the pedal; not for the main thread.
bool pedalAnswers(KZQ7306& looper);

}  // namespace kzq::ctl
