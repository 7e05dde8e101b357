#pragma once

#include <filesystem>
#include <functional>

namespace kzq {

// Runs before the application is created: fixes the name of the bundle and sets two defaults.

/// The places it uses; tests supply their own.
struct StartUpPlaces {
    std::filesystem::path home;     ///< the user's home folder; empty for none
    std::filesystem::path program;  ///< the running program's file
    /// Starts the program in a bundle without waiting; returns whether it could be started.
    std::function<bool(const std::filesystem::path& bundle)> open;
};

/// The marker that keeps the bundle's name for one start: a self-update writes it just before it relaunches.
/// Empty without a home.
std::filesystem::path bundleNameMarker(const std::filesystem::path& home);
/// Writes the marker with the present date; errors are ignored.
void writeBundleNameMarker(const std::filesystem::path& home);

/// The nearest folder above `program` whose name ends in ".app", as a bundle's does; empty for none: an
/// installed program is in no bundle and is never moved.
std::filesystem::path bundleOf(const std::filesystem::path& program);

/// Renames a bundle that still has its build name to the public one and starts it from there. True if it was
/// renamed, even if nothing could be started: this process must then end. If the marker exists, it is removed
/// and nothing is renamed.
bool handOverToRenamedBundle(const StartUpPlaces& places);

/// The file of the user's defaults, under $XDG_CONFIG_HOME or the home folder's ".config"; empty without
/// either.
std::filesystem::path usualSettings(const std::filesystem::path& home);
/// Keeps the toolkit's entries for dictation and special characters out of the Edit menu. Errors are ignored.
void setUserDefaults(const std::filesystem::path& settings);

}  // namespace kzq
