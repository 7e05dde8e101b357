#pragma once

#include <cstdint>
#include <filesystem>

namespace kzq {

// What the programs set up in their process before anything else. Main thread, before there are others.

/// A closed standard stream would give its number to the next opened file, and output would go into a
/// recording. So each closed one gets a file that fails on use. False if that cannot be done.
bool occupyStandardStreams();

/// Makes a closed pipe or a file size limit a failed write rather than a signal that would kill a running
/// transfer.
void ignoreWriteSignals();

/// Has the memory of a loop go back to the system as soon as it is freed. Left to itself, malloc keeps what
/// was as large as an earlier loop in heaps, and a restore of 20 loops came to twice their size.
void returnFreedLoops();

/// The minor number of the C library: "2.36" gives 36. The device link asks for it; 0 switches it off.
std::uint64_t systemMinorVersion();

/// From $HOME; empty for none.
std::filesystem::path homeFolder();
/// Where in it the programs keep what they are to remember; empty without a home.
std::filesystem::path programFolderIn(const std::filesystem::path& home);

}  // namespace kzq
