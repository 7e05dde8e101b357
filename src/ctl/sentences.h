#pragma once

#include <optional>
#include <string>

#include "ctl/exit_codes.h"
#include "device/failure.h"

namespace kzq::ctl {

/// A failure as the user and the user's scripts hear of it.
struct Explanation {
    ExitCode code = ExitCode::ok;
    std::string sentence;
};

/// Why the pedal cannot be used; nothing when `failure` is not about getting hold of it. `ruleInstalled`:
/// whether the system has the rule that gives the pedal to its user.
std::optional<Explanation> explainConnection(Failure failure, bool ruleInstalled);
/// Why one loop was not read: the part behind "Loop 4 was not saved: ".
Explanation explainLoop(Failure failure);

/// Why one loop was not written: the part behind "Loop 4 was not written: ".
Explanation explainExport(Failure failure);

Explanation cancelledByUser();
Explanation noPedalConnected();
Explanation pedalUnplugged();
Explanation pedalStoppedAnswering();
Explanation pedalBusy();
Explanation pedalInLoader();
Explanation statusUnreadable();
Explanation systemVersionUnknown();
Explanation outputLost();

}  // namespace kzq::ctl
