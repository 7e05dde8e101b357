#include <poll.h>
#include <unistd.h>

#include <QCoreApplication>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <utility>

#include "audio/conversion.h"
#include "audio/converted_audio.h"
#include "ctl/pedal/signals.h"
#include "ctl/pedal/standard_input.h"
#include "ctl/speech/json_output.h"
#include "ctl/speech/report.h"
#include "ctl/tool.h"
#include "device/libusb/diagnosis.h"
#include "device/libusb/libusb_port.h"
#include "device/libusb/libusb_version.h"
#include "device/recorder/recording_port.h"
#include "device/recorder/recordings.h"
#include "device/recorder/replay_port.h"
#include "device/simulator/simulation.h"
#include "operations/backup.h"
#include "operations/sentences.h"
#include "platform/process.h"
#include "platform/run_folder.h"
#include "platform/standard_executor.h"
#include "troubleshooting/log_tail.h"
#include "troubleshooting/root_shell.h"
#include "troubleshooting/this_computer.h"
#include "updates/authorities.h"
#include "updates/maker.h"
#include "updates/qt_http_client.h"
#include "updates/update_build.h"

namespace {

using namespace kzq;
using ctl::ExitCode;

/// A cancelled transfer may take two graces; this is more.
constexpr auto longestEnd = std::chrono::seconds(5);

int ended(ExitCode code) {
    return static_cast<int>(code);
}

int complain(ExitCode code, const std::string& sentence, bool json = false) {
    ctl::Output output(std::cout, std::cerr, false);
    return ended(ctl::Report(output, json).stopped(code, ctl::nameOfEnd(std::nullopt, code), sentence));
}

int complain(const Trouble& trouble, const std::string& sentence, bool json = false) {
    ctl::Output output(std::cout, std::cerr, false);
    return ended(ctl::Report(output, json).stopped(trouble, sentence));
}

/// The help or the version.
int show(const ctl::ParsedOptions& parsed) {
    if (parsed.json) {
        ctl::Output output(std::cout, std::cerr, false);
        ctl::printJson(output, {{"text", parsed.text}}, true);
    } else {
        std::cout << parsed.text << std::flush;
    }
    return std::cout ? ended(ExitCode::ok)
                     : complain({Trouble::Kind::outputLost}, conversionSentence({Trouble::Kind::outputLost}));
}

/// Without waiting for anything: the main thread may be stuck.
void printCancelled(bool json) {
    if (pollfd out{STDOUT_FILENO, POLLOUT, 0}; json && ::poll(&out, 1, 0) == 1) {
        auto end = ctl::finishedJson(ExitCode::cancelled, "cancelled", "Cancelled.");
        end["schema"] = ctl::jsonSchema;
        const auto line = ctl::jsonText(end) + "\n";
        static_cast<void>(::write(STDOUT_FILENO, line.data(), line.size()));
    }
    std::cerr << "kzq7306ctl: Cancelled." << std::endl;
}

Result<ctl::ConvertedFile> convert(const ctl::ConversionOrder& order) {
    return Conversion({.output = order.output,
                       .progress = order.progress,
                       .cancelled = order.cancelled,
                       .sync = order.sync,
                       .salvage = order.salvage,
                       .normalize = order.normalize,
                       .everyKind = true})
        .convert(order.source)
        .map([&order](const Conversion::File& file) {
            return ctl::ConvertedFile{
                file.path,
                file.frames,
                {verdictName(file.verdict), file.flaw, file.gain, order.normalize, file.silenced}};
        });
}

Result<std::unique_ptr<simulator::Simulation>> simulate(Executor& executor, const ctl::Options& options) {
    auto made =
        simulator::Simulation::make(executor, {options.simulatedFolder, options.faults, convertedAudio});
    if (made) {
        (*made)->pedal().plugIn();
    }
    return made;
}

std::vector<Finding> simulatedFindings() {
    return {simulatedFinding()};
}

std::vector<std::string> versions() {
    std::vector<std::string> lines{"kzq7306ctl " KZQ_VERSION, std::string("Qt ") + qVersion(),
                                   "libusb " + libusbVersion()};
    std::ranges::move(thisComputer(), std::back_inserter(lines));
    return lines;
}

Result<std::unique_ptr<UsbPort>> replay(Executor& executor, const std::filesystem::path& path) {
    return recorder::read(path).map([&](recorder::Recording&& recording) -> std::unique_ptr<UsbPort> {
        const auto differs = [](const std::string& difference) {
            complain({Trouble::Kind::badRecording}, "The recording is of something else: " + difference);
        };
        return std::make_unique<recorder::ReplayPort>(executor, std::move(recording), differs);
    });
}

/// Puts the log into a recording, and keeps its end.
std::function<void(std::string_view)> noteTaker(const std::shared_ptr<recorder::SessionRecorder>& recorder,
                                                const std::shared_ptr<LogTail>& tail) {
    return [recorder, tail](std::string_view line) {
        tail->add(line);
        if (recorder) {
            recorder->note(line);
        }
    };
}

/// Workers may be parked in a transfer that never ends, so the process does not wait for them.
[[noreturn]] void leave(ExitCode code) {
    RunFolder::ofThisRun().remove();
    std::cout.flush();
    std::cerr.flush();
    std::_Exit(ended(code));
}

/// What stands for the pedal's bus, and what records it.
struct Bus {
    /// What the program ends with, if one of them cannot be had.
    std::optional<int> open(Executor& executor, const ctl::Options& options) {
        if (options.simulate) {
            auto made = simulate(executor, options);
            if (!made) {
                return complain(
                    made.error().kind == Trouble::Kind::badFault ? ExitCode::usage : ExitCode::fileError,
                    simulationSentence(made.error()), options.json);
            }
            simulation = std::move(*made);
        } else if (!options.replay.empty()) {
            auto made = replay(executor, options.replay);
            if (!made) {
                return complain(made.error(), badRecordingSentence(made.error()), options.json);
            }
            own = std::move(*made);
        } else {
            own = std::make_unique<LibusbPort>(options.readsInFlight);
        }
        return options.record.empty() ? std::nullopt : record(executor, options);
    }
    std::optional<int> record(Executor& executor, const ctl::Options& options) {
        auto made =
            recorder::begin(executor, options.record, "kzq7306ctl " KZQ_VERSION,
                            [](const Trouble& trouble) { complain(trouble, recordingEndSentence(trouble)); });
        if (!made) {
            return complain(made.error(), recordingSentence(made.error()), options.json);
        }
        recorder = std::move(*made);
        recording = std::make_unique<recorder::RecordingPort>(port(), recorder);
        return std::nullopt;
    }
    UsbPort& port() const {
        return recording ? *recording : simulation ? static_cast<UsbPort&>(simulation->port()) : *own;
    }

    std::unique_ptr<simulator::Simulation> simulation;
    std::unique_ptr<UsbPort> own;
    std::shared_ptr<recorder::SessionRecorder> recorder;
    std::unique_ptr<UsbPort> recording;
};

/// What the tool needs of the computer. All that is handed in outlives it.
ctl::Environment environmentOf(const ctl::Options& options, Executor& executor, const Bus& bus,
                               QtHttpClient& http, ctl::Signals& signals) {
    const auto tail = std::make_shared<LogTail>();
    const bool real = !options.simulate && options.replay.empty();
    return {.executor = executor,
            .usb = bus.port(),
            .out = std::cout,
            .err = std::cerr,
            .terminal = ::isatty(STDOUT_FILENO) == 1,
            .systemMinorVersion = systemMinorVersion,
            .ask = ctl::askOnTerminal,
            .convert = convert,
            .input = ctl::readStandardInput,
            .workingFolder = [] { return RunFolder::ofThisRun().path(); },
            .finished = leave,
            .http = &http,
            .manifest = firmwareManifestAddress(options.host),
            .home = homeFolder(),
            .keepAwake = [] { return keepAwake(AwakeFor::firmware); },
            .holdSignals = [&signals](auto heard) { signals.hold(std::move(heard)); },
            .conversionsAtOnce = DecoderTurns::ofThisProgram().atOnce(),
            .backedUp =
                [real] {
                    if (real) {
                        rememberBackup(homeFolder());
                    }
                },
            .diagnose = [real] { return real ? diagnose() : simulatedFindings(); },
            .examine = [real] { return real ? diagnoseByTrying() : simulatedFindings(); },
            .removal = [real] { return real ? removal() : std::string(); },
            .capture = recorder::capture,
            .asRoot = rootShell(),
            .report =
                [tail] {
                    return TroubleReport{
                        .versions = versions(), .log = tail->lines(), .owner = {homeFolder(), loginName()}};
                },
            .logged = noteTaker(bus.recorder, tail),
            .keys = UpdateBuild::ofThisProgram().keys};
}

int run(const ctl::Options& options, ctl::Signals& signals) {
    // Qt's part of the web and of D-Bus wants one.
    int count = 1;
    std::string name = "kzq7306ctl";
    std::array<char*, 2> arguments{name.data(), nullptr};
    const QCoreApplication application(count, arguments.data());
    StandardExecutor executor;
    RunFolder::ofThisRun().sweep();
    Bus bus;
    if (const auto code = bus.open(executor, options)) {
        return *code;
    }
    const auto authorities = authoritiesIn(options.authorities);
    if (!authorities) {
        return complain(ExitCode::fileError, "Cannot read " + options.authorities.string() + ".",
                        options.json);
    }
    QtHttpClient http(*authorities);
    const auto environment = environmentOf(options, executor, bus, http, signals);
    ctl::Tool tool(options, environment);
    signals.listen(
        executor, [&tool] { tool.interrupt(); },
        [json = options.json] {
            RunFolder::ofThisRun().remove();
            printCancelled(json);
            std::_Exit(ended(ExitCode::cancelled));
        },
        longestEnd);
    executor.main([&tool] { tool.start(); });
    executor.run();
    return ended(ExitCode::ok);  // not reached: the tool leaves
}

}  // namespace

int main(int argc, char** argv) {
    if (!occupyStandardStreams()) {
        std::_Exit(ended(ExitCode::fileError));
    }
    ctl::Signals signals;
    ignoreWriteSignals();
    returnFreedLoops();
    const auto parsed = ctl::parseOptions({argv + std::min(argc, 1), argv + argc});
    if (parsed.options) {
        return run(*parsed.options, signals);
    }
    if (parsed.code != ExitCode::ok) {
        return complain(parsed.code, parsed.text, parsed.json);
    }
    return show(parsed);
}
