#pragma once

#include <ostream>
#include <vector>

#include "release/site.h"
#include "updates/update_signature.h"

namespace kzq::release {

struct RehearsalOrder {
    std::filesystem::path folder;  ///< the site
    std::vector<UpdateKey> keys;   ///< pinned
    std::string from;              ///< the firmware that the pedal runs before
    bool blank = false;
};

/// The whole road of the newest firmware: served over HTTPS on this computer, found, fetched and verified by
/// the command-line tool in this process, sent to a simulated pedal, and compared with what that then holds.
/// Returns whether the pedal runs it. Blocks; main thread, once in a process.
bool rehearse(const RehearsalOrder& order, std::ostream& out);

}  // namespace kzq::release
