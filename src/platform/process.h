#pragma once

#include <cstdint>
#include <filesystem>

namespace kzq {

// What the programs settle about their process before anything else. Main thread, before any other.

/// A standard stream that is closed would give its number to the next file that is opened, and what is
/// printed would go into a recording: each gets a file instead that it cannot be used with. False when that
/// cannot be done.
bool occupyStandardStreams();

/// A reader that has gone, or a limit on the size of files, is a failed write and no reason to leave a
/// transfer.
void ignoreWriteSignals();

/// The minor number of the C library: "2.36" gives 36. The device link asks for it; 0 switches it off.
std::uint64_t systemMinorVersion();

/// From $HOME; empty for none.
std::filesystem::path homeFolder();

}  // namespace kzq
