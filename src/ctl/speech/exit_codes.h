#pragma once

#include <optional>
#include <string_view>

#include "operations/outcome.h"
#include "platform/trouble.h"

namespace kzq::ctl {

/// The program's exit codes. Published: scripts rely on these numbers.
///
/// A command that meets more than one of them answers with what ended it before its last loop: cancelled,
/// noPedal (unplugged), pedalRefused (stopped answering), fileError. If nothing did, but loops failed one by
/// one, it is the first failure's own code when nothing went well and someFailed when something did.
enum class ExitCode : int {
    ok = 0,
    usage = 2,         ///< also: a question, but standard input is not a terminal
    noPedal = 3,       ///< not there, or it was unplugged
    noPermission = 4,  ///< the system does not let this user open it, or does not pass on what import needs
    pedalRefused = 5,  ///< it refused, is busy or in other hands, has stopped answering, has no room, or the
                       ///< slot is empty; firmware was sent and is not known to be installed
    fileError = 6,     ///< one that could not be read, converted or written
    someFailed = 7,    ///< some loops failed, or are not what they should be; the others went well
    noDownload = 8,    ///< the maker's server could not be reached, or what it sent is not usable
    cancelled = 130    ///< also: a question answered with no
};

ExitCode exitCode(Trouble::Kind kind);
ExitCode exitCode(const Outcome& outcome);

// What --json calls it; doc/json.md lists these names.

std::string_view nameOfFinding(Trouble::Kind kind);
/// Of a loop that failed.
std::string_view nameOfFailure(Trouble::Kind kind);
/// Of what ended a command: many share the name of their exit code.
std::string_view nameOfEnd(const std::optional<Trouble::Kind>& kind, ExitCode code);

}  // namespace kzq::ctl
