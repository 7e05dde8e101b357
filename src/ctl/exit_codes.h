#pragma once

namespace kzq::ctl {

/// What the program tells its caller. Published: scripts rely on these numbers.
///
/// An import that meets more than one of them answers with the first that holds of: cancelled, fileError,
/// noPedal (unplugged), pedalRefused (stopped answering), and then, of loops that failed one by one, the
/// first failure's own code when nothing was saved and someFailed when something was.
enum class ExitCode : int {
    ok = 0,
    usage = 2,
    noPedal = 3,       ///< not there, or it was unplugged
    noPermission = 4,  ///< the system does not let this user open it
    pedalRefused = 5,  ///< it refused, is busy or in other hands, has stopped answering, or the slot is empty
    fileError = 6,
    someFailed = 7,  ///< some loops failed; the others are saved
    cancelled = 130
};

}  // namespace kzq::ctl
