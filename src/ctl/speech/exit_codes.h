#pragma once

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
                       ///< slot is empty
    fileError = 6,     ///< one that could not be read, converted or written
    someFailed = 7,    ///< some loops failed, or are not what they should be; the others went well
    noDownload = 8,    ///< the maker's server could not be reached, or what it sent is not usable
    cancelled = 130    ///< also: a question answered with no
};

}  // namespace kzq::ctl
