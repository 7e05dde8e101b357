#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "ctl/speech/sentences.h"

namespace kzq::ctl {

/// The results of a command's loops.
struct Tally {
    std::size_t wanted = 0;
    std::size_t done = 0;
    std::vector<Explanation> failures;  ///< of single loops, in order; all of them have been said
    std::string doubt;                  ///< what the end may have left behind: a sentence, or nothing
    bool stopped = false;               ///< after the last failure no other loop was tried

    /// Whether `done` is too uncertain to report.
    bool unsure() const { return done == 0 && !doubt.empty(); }

    /// `end`: what ended the command before its last loop, if anything did.
    ExitCode exitCode(const std::optional<Explanation>& end) const {
        if (end) {
            return end->code;
        }
        if (failures.empty()) {
            return ExitCode::ok;
        }
        if (stopped) {
            return failures.back().code;
        }
        return done == 0 ? failures.front().code : ExitCode::someFailed;
    }
};

}  // namespace kzq::ctl
