#include <fcntl.h>
#include <gnu/libc-version.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <QCoreApplication>
#include <algorithm>
#include <array>
#include <charconv>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <string_view>
#include <utility>

#include "audio/conversion.h"
#include "ctl/signals.h"
#include "ctl/sleep_inhibitor.h"
#include "ctl/tool.h"
#include "device/libusb/diagnosis.h"
#include "device/libusb/libusb_port.h"
#include "device/recorder/recording_port.h"
#include "device/simulator/loop_folder.h"
#include "device/simulator/simulated_port.h"
#include "device/simulator/synthesiser.h"
#include "platform/run_folder.h"
#include "platform/standard_executor.h"
#include "updates/maker.h"
#include "updates/qt_http_client.h"

namespace {

using namespace kzq;
using ctl::ExitCode;

/// A cancelled transfer may take two graces; this is more.
constexpr auto longestEnd = std::chrono::seconds(5);

int ended(ExitCode code) {
    return static_cast<int>(code);
}

int complain(const ctl::Explanation& problem) {
    ctl::Output(std::cout, std::cerr, false).error(problem.sentence);
    return ended(problem.code);
}

/// The minor number of the C library: "2.36" gives 36.
std::uint64_t systemMinorVersion() {
    const std::string_view version = gnu_get_libc_version();
    const auto dot = version.find('.');
    std::uint64_t minor = 0;
    if (dot != std::string_view::npos) {
        std::from_chars(version.data() + dot + 1, version.data() + version.size(), minor);
    }
    return minor;
}

ctl::ConvertedFile convert(const ctl::ConversionOrder& order) {
    const auto result = Conversion({.output = order.output,
                                    .progress = order.progress,
                                    .cancelled = order.cancelled,
                                    .sync = order.sync})
                            .convert(order.source);
    return {result.path, result.frames, result ? "" : result.failure->sentence};
}

/// The simulated pedal with its port. What is written to it is kept in `folder`, if that is not empty.
struct Simulation {
    Simulation(Executor& executor, simulator::PedalMemory memory, simulator::LoopFolder loopFolder)
        : folder(std::move(loopFolder)),
          pedal(executor, {.memory = std::move(memory)}),
          port(executor, pedal) {}

    simulator::LoopFolder folder;
    simulator::SimulatedPedal pedal;
    simulator::SimulatedPort port;
};

/// Null, with `problem` set, when the options do not describe one.
std::unique_ptr<Simulation> simulate(Executor& executor, const ctl::Options& options,
                                     ctl::Explanation& problem) {
    auto memory = simulator::demonstrationMemory();
    simulator::LoopFolder folder(options.simulatedFolder);
    if (!options.simulatedFolder.empty()) {
        auto loaded = folder.load(problem.sentence);
        if (!loaded) {
            problem.code = ExitCode::fileError;
            return nullptr;
        }
        memory = std::move(*loaded);
    }
    auto simulation = std::make_unique<Simulation>(executor, std::move(memory), std::move(folder));
    if (!options.simulatedFolder.empty()) {
        simulation->pedal.setMemoryListener(
            [&kept = simulation->folder](std::uint8_t address, const simulator::StoredLoop* loop) {
                kept.store(address, loop);
            });
    }
    for (const auto& text : options.faults) {
        const auto fault = simulator::faultFromText(text);
        if (!fault) {
            problem = {
                ExitCode::usage,
                "--fault \"" + text + "\" is not of the form KIND@WHERE[:COUNT][+], such as unplug@in:100."};
            return nullptr;
        }
        simulation->pedal.plan(*fault);
    }
    simulation->pedal.plugIn();
    return simulation;
}

std::vector<Finding> simulatedFindings() {
    return {{PedalTrouble::nothingOnBus, false, "A simulated pedal takes the place of a real one.", {}}};
}

/// Null, with a sentence in `problem`, when there can be no recording.
std::shared_ptr<recorder::SessionRecorder> record(Executor& executor, const std::filesystem::path& path,
                                                  std::string& problem) {
    const auto trouble = [](const std::string& sentence) { complain({ExitCode::fileError, sentence}); };
    auto file = recorder::RecordingFile::create(path, trouble, problem);
    if (!file) {
        return nullptr;
    }
    auto made = std::make_shared<recorder::SessionRecorder>(executor, std::move(file));
    utsname kernel{};
    made->note("kzq7306ctl " KZQ_VERSION +
               (::uname(&kernel) == 0 ? std::string(", ") + kernel.sysname + " " + kernel.release : ""));
    return made;
}

/// Puts the log into a recording.
std::function<void(std::string_view)> noteTaker(const std::shared_ptr<recorder::SessionRecorder>& recorder) {
    if (!recorder) {
        return {};
    }
    return [recorder](std::string_view line) { recorder->note(line); };
}

std::filesystem::path homeFolder() {
    const char* const home = std::getenv("HOME");  // NOLINT(concurrency-mt-unsafe): nothing here sets it
    return home != nullptr ? home : "";
}

/// Workers may be parked in a transfer that never ends, so the process does not wait for them.
[[noreturn]] void leave(ExitCode code) {
    RunFolder::ofThisRun().remove();
    std::cout.flush();
    std::cerr.flush();
    std::_Exit(ended(code));
}

int run(const ctl::Options& options, ctl::Signals& signals) {
    // Qt's part of the web and of D-Bus wants one.
    int count = 1;
    std::string name = "kzq7306ctl";
    std::array<char*, 2> arguments{name.data(), nullptr};
    const QCoreApplication application(count, arguments.data());
    StandardExecutor executor;
    RunFolder::ofThisRun().sweep();
    std::unique_ptr<Simulation> simulation;
    std::unique_ptr<UsbPort> bus;
    if (options.simulate) {
        ctl::Explanation problem;
        simulation = simulate(executor, options, problem);
        if (!simulation) {
            return complain(problem);
        }
    } else {
        bus = std::make_unique<LibusbPort>();
    }
    std::shared_ptr<recorder::SessionRecorder> recorder;
    std::unique_ptr<UsbPort> recording;
    UsbPort& port = simulation ? static_cast<UsbPort&>(simulation->port) : *bus;
    if (!options.record.empty()) {
        ctl::Explanation problem{ExitCode::fileError, {}};
        recorder = record(executor, options.record, problem.sentence);
        if (!recorder) {
            return complain(problem);
        }
        recording = std::make_unique<recorder::RecordingPort>(port, recorder);
    }
    QtHttpClient http;
    const ctl::Environment environment{
        .executor = executor,
        .usb = recording ? *recording : port,
        .out = std::cout,
        .err = std::cerr,
        .terminal = ::isatty(STDOUT_FILENO) == 1,
        .systemMinorVersion = systemMinorVersion,
        .ask = ctl::askOnTerminal,
        .convert = convert,
        .workingFolder = [] { return RunFolder::ofThisRun().path(); },
        .finished = leave,
        .http = &http,
        .manifest = firmwareManifestAddress(),
        .home = homeFolder(),
        .keepAwake = ctl::keepAwake,
        .holdSignals = [&signals](bool held) { signals.hold(held); },
        .diagnose = [real = !options.simulate] { return real ? diagnose() : simulatedFindings(); },
        .logged = noteTaker(recorder)};
    ctl::Tool tool(options, environment);
    signals.listen(
        executor, [&tool] { tool.interrupt(); },
        [] {
            RunFolder::ofThisRun().remove();
            std::cerr << "kzq7306ctl: Cancelled." << std::endl;
            std::_Exit(ended(ExitCode::cancelled));
        },
        longestEnd);
    executor.main([&tool] { tool.start(); });
    executor.run();
    return ended(ExitCode::ok);  // not reached: the tool leaves
}

/// A standard stream that is closed would give its number to the next file that is opened, and what is
/// printed would go into a recording. Each gets a file instead that it cannot be used with.
void occupyStandardStreams() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(stream, F_GETFD) < 0 &&
            ::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY) < 0) {
            std::_Exit(ended(ExitCode::fileError));
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    occupyStandardStreams();
    ctl::Signals signals;
    // A reader that has gone, or a limit on the size of files, is a failed write and no reason to leave a
    // transfer.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    const auto parsed = ctl::parseOptions({argv + std::min(argc, 1), argv + argc});
    if (parsed.options) {
        return run(*parsed.options, signals);
    }
    if (parsed.code != ExitCode::ok) {
        return complain({parsed.code, parsed.text});
    }
    std::cout << parsed.text << std::flush;
    return std::cout ? ended(ExitCode::ok) : complain(ctl::outputLost());
}
