#pragma once

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "ctl/pedal/converter.h"
#include "ctl/speech/exit_codes.h"
#include "ctl/speech/question.h"
#include "device/finding.h"
#include "device/usb_port.h"
#include "operations/generations.h"
#include "platform/awake.h"
#include "platform/executor.h"
#include "platform/free_space.h"
#include "troubleshooting/doctor.h"
#include "troubleshooting/report.h"
#include "updates/http_client.h"
#include "updates/update_signature.h"

namespace kzq::ctl {

/// What the tool runs on; all of it outlives the tool.
struct Environment {
    Executor& executor;
    UsbPort& usb;
    std::ostream& out;
    std::ostream& err;
    bool terminal = false;  ///< whether `out` is one
    std::function<std::uint64_t()> systemMinorVersion;
    std::function<Answer(const std::string& question)> ask;  ///< blocks; any thread
    Converter convert;
    /// Standard input, as readStandardInput reads it; any thread.
    std::function<ssize_t(std::span<std::uint8_t>)> input;
    std::function<std::optional<std::filesystem::path>()> workingFolder;  ///< for working copies; any thread
    /// Called once: on the main thread, or on any while that one hangs.
    std::function<void(ExitCode)> finished;

    // for firmware only

    HttpClient* http = nullptr;
    std::string manifest;                  ///< its https address
    std::filesystem::path home;            ///< the user's home folder; empty for none
    std::function<AwakeLock()> keepAwake;  ///< blocks; any thread
    /// From here on no signal ends the program: each only calls `heard`, on a thread of its own. An empty one
    /// ends that. Any thread.
    std::function<void(std::function<void()> heard)> holdSignals;

    std::size_t conversionsAtOnce = 1;
    /// What files may still take; any thread.
    FreeSpace freeSpace = kzq::freeSpace;
    /// What backups are named after; any thread.
    Stamp stamp = localStamp;
    /// One was completed; any thread.
    std::function<void()> backedUp = [] {};
    /// What keeps the user from using the pedal; any thread.
    std::function<std::vector<Finding>()> diagnose = [] { return std::vector<Finding>(); };
    /// The same more thoroughly: may take seconds, and use the pedal.
    std::function<std::vector<Finding>()> examine = [] { return std::vector<Finding>(); };
    /// The commands that undo what the doctor installs; empty if nothing of it is there. Any thread.
    std::function<std::string()> removal = [] { return std::string(); };
    /// Converts a recording into a new capture; any thread.
    std::function<Result<void>(const std::filesystem::path& recording, const std::filesystem::path& capture,
                               bool audio)>
        capture = {};
    /// Empty: there is no program that asks for the password.
    RootShell asRoot = {};
    /// What goes into a report but for the findings and the log.
    std::function<TroubleReport()> report = [] { return TroubleReport(); };
    /// Receives every line of the log, preceded by its category; may be empty. Must not log. Any thread.
    std::function<void(std::string_view line)> logged = {};
    /// Who signs the manifest; see FirmwareServer.
    std::vector<UpdateKey> keys = {};
};

}  // namespace kzq::ctl
