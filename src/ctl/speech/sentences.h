#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ctl/speech/exit_codes.h"
#include "device/finding.h"
#include "platform/trouble.h"

namespace kzq::ctl {

/// A failure as the user and the user's scripts hear of it.
struct Explanation {
    ExitCode code = ExitCode::ok;
    std::string sentence;
    std::string_view trouble = {};  ///< a name for programs, of static storage; empty: that of the code
};

/// The stable name of what went wrong, for programs; doc/json.md lists them.
std::string_view troubleName(const Explanation& explanation);

/// Why the pedal cannot be used; nothing when `trouble` is not about getting hold of it. `findings`: what the
/// diagnosis says about this computer.
std::optional<Explanation> explainConnection(const std::optional<Trouble>& trouble,
                                             const std::vector<Finding>& findings);
/// Why one loop was not read: the part behind "Loop 4 was not saved: ".
Explanation explainLoop(Trouble::Kind why);
/// The same of a loop that came with another length than the pedal's table had given it.
Explanation changedWhileRead();
/// Why one loop was not written: the part behind "Loop 4 was not written: ".
Explanation explainExport(Trouble::Kind why);

Explanation cancelledByUser();
Explanation pedalUnplugged();
Explanation pedalStoppedAnswering();
Explanation pedalBusy();
Explanation pedalInLoader();
Explanation statusUnreadable();

}  // namespace kzq::ctl
