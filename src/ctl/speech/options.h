#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "ctl/speech/exit_codes.h"
#include "loops/slot_number.h"
#include "platform/executor.h"

namespace kzq::ctl {

enum class Subcommand {
    list,
    import,
    exportFiles,
    erase,
    convert,
    backup,
    diff,
    restore,
    watch,
    firmware,
    firmwareInstall,
    doctor,
    recording
};

/// What the user asked for.
struct Options {
    Subcommand subcommand = Subcommand::list;
    bool json = false;
    bool verbose = false;
    bool simulate = false;
    std::filesystem::path simulatedFolder;   ///< empty: the simulated pedal's own loops
    std::vector<std::string> faults;         ///< for the simulated pedal, as given
    std::filesystem::path record;            ///< a new file for what goes over USB; empty: none
    std::filesystem::path replay = {};       ///< a recording in place of a pedal; empty: none
    unsigned readsInFlight = 1;              ///< from a pedal on USB
    std::string host = {};                   ///< in place of the maker's; empty: the maker's
    std::filesystem::path authorities = {};  ///< certificates trusted instead of the system's; empty: those
    Executor::Duration wait{};               ///< for a pedal to be connected and free
    Executor::Duration patience{};           ///< with a silent pedal; 0: no limit
    bool yes = false;                        ///< every question is answered with yes
    bool all = false;                        ///< import, erase: every loop
    std::vector<SlotNumber> slots;           ///< import, erase, restore: ascending
    std::filesystem::path folder;            ///< import, backup, diff, restore
    bool list = false;                       ///< backup: show which there are
    bool quick = false;                      ///< diff: do not read the audio
    bool skipDamaged = false;                ///< restore: leave out what is damaged
    std::string snapshot = {};               ///< diff, restore: its name; empty: the newest
    std::vector<std::filesystem::path>
        files;                          ///< export, convert: to be converted, "-" is convert's
                                        ///< standard input; firmwareInstall: at most one; recording: it
    std::optional<SlotNumber> slot;     ///< export: of the first file; else the free slots are taken
    bool verify = false;                ///< export: read back and compare
    bool salvage = false;               ///< export, convert: take what there is of a damaged file
    bool normalize = false;             ///< export, convert: to a true peak of -1 dB
    bool install = false;               ///< doctor: set up what is missing
    bool remove = false;                ///< doctor: undo that
    std::filesystem::path report = {};  ///< doctor: a new file for a report; empty: none
    bool withNames = false;             ///< doctor: names of files in it
    bool withoutAudio = false;          ///< recording
    /// convert: the new file, "-" is standard output; recording: the new capture
    std::filesystem::path output;
};

/// Either `options`, or what to print and the code to end with: `text` is the help or the version when `code`
/// is ok, otherwise a sentence for standard error.
struct ParsedOptions {
    std::optional<Options> options;
    ExitCode code = ExitCode::ok;
    std::string text;
    bool json = false;  ///< whether to print it as JSON
};

/// `arguments` without the program's name.
ParsedOptions parseOptions(std::vector<std::string> arguments);

}  // namespace kzq::ctl
