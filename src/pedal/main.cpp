#include <sys/socket.h>

#include <array>
#include <csignal>
#include <iostream>
#include <utility>

#include "audio/converted_audio.h"
#include "device/simulator/gadget/gadget.h"
#include "device/simulator/loop_folder.h"
#include "device/simulator/synthesiser.h"
#include "device/simulator/usbip/kernel_port.h"
#include "device/simulator/usbip/usbip_server.h"
#ifdef KZQ_USBREDIR
#include "device/simulator/usbredir/redirection.h"
#endif
#include "operations/sentences.h"
#include "pedal/pedal_options.h"
#include "platform/standard_executor.h"

namespace {

using namespace kzq;
using pedal::Options;
using simulator::SimulatedPedal;

constexpr int violationsStatus = 1;
constexpr int cannotOfferStatus = 3;

void say(const std::string& line) {
    std::cout << "kzq7306-pedal: " << line << std::endl;
}

int complain(const std::string& sentence) {
    std::cerr << "kzq7306-pedal: " << sentence << std::endl;
    return cannotOfferStatus;
}

sigset_t handledSignals() {
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : {SIGINT, SIGTERM, SIGUSR1, SIGUSR2}) {
        sigaddset(&set, signal);
    }
    return set;
}

/// What a person does to the pedal, by signals, on the main thread.
void obeySignals(StandardExecutor& executor, SimulatedPedal& pedal) {
    executor.service("signals", [&executor, &pedal] {
        const sigset_t set = handledSignals();
        int signal = 0;
        if (::sigwait(&set, &signal) != 0) {
            return;
        }
        executor.main([&executor, &pedal, signal] {
            if (signal == SIGUSR1) {
                pedal.unplug();
                say("the cable is pulled");
            } else if (signal == SIGUSR2) {
                pedal.plugIn();
            } else {
                executor.stop();
            }
        });
    });
}

/// Plugs the pedal into this computer's kernel.
std::string attach(simulator::usbip::UsbipServer& server) {
    namespace usbip = simulator::usbip;
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        return "Could not create a pair of sockets.";
    }
    Descriptor ours(ends[0]);
    const Descriptor kernels(ends[1]);
    if (server.carry(std::move(ours)) != usbip::OperationStatus::ok) {
        return {};  // another computer was quicker, or it has left again
    }
    return usbip::plugIntoKernel(usbip::kernelHost(), kernels.get(), usbip::PedalBus::record());
}

Result<void> fill(SimulatedPedal::Start& start, simulator::LoopFolder& folder, const Options& options) {
    start.version = options.firmware;
    start.stage = options.stage;
    if (options.folder.empty()) {
        start.memory = simulator::demonstrationMemory();
    } else {
        auto memory = folder.load();
        if (!memory) {
            return std::move(memory.error());
        }
        start.memory = std::move(*memory);
    }
    for (const auto& [address, channel] : options.channels) {
        if (auto& loop = start.memory.at(address)) {
            loop->channel = channel;
        }
    }
    return {};
}

int finish(const SimulatedPedal& pedal) {
    const auto violations = pedal.violations();
    for (const auto& violation : violations) {
        complain(violation);
    }
    return violations.empty() ? 0 : violationsStatus;
}

/// `bus`: a Gadget or a Redirection.
int runOn(auto&& bus, const std::string& words, StandardExecutor& executor, SimulatedPedal& pedal) {
    pedal.plugIn();
    if (const auto started = bus.start(); !started) {
        return complain(simulationSentence(started.error()));
    }
    say(words);
    obeySignals(executor, pedal);
    executor.run();
    return finish(pedal);
}

int run(const Options& options) {
    StandardExecutor executor;
    simulator::LoopFolder folder(options.folder, convertedAudio);
    SimulatedPedal::Start start;
    if (const auto filled = fill(start, folder, options); !filled) {
        return complain(simulationSentence(filled.error()));
    }
    SimulatedPedal pedal(executor, std::move(start));
    if (!options.folder.empty()) {
        pedal.setMemoryListener([&folder](std::uint8_t address, const simulator::StoredLoop* loop) {
            folder.store(address, loop);
        });
    }
    for (const auto& fault : options.faults) {
        pedal.plan(fault);
    }

    if (!options.gadget.empty()) {
        return runOn(simulator::Gadget(pedal, options.gadget), "the pedal is at the device port", executor,
                     pedal);
    }
    if (!options.usbredir.empty()) {
#ifdef KZQ_USBREDIR
        return runOn(simulator::Redirection(pedal, options.usbredir), "the pedal is in the machine", executor,
                     pedal);
#else
        return complain(
            "This kzq7306-pedal was built without usbredir. Install libusbredirparser-dev and build it "
            "again.");
#endif
    }
    bool attached = true;
    simulator::usbip::UsbipServer* attaching = nullptr;
    simulator::usbip::PedalBus bus(pedal, [&] {
        executor.main([&] {
            say("the pedal is on the bus");
            if (const auto problem = options.attach ? attach(*attaching) : ""; !problem.empty()) {
                complain(problem);
                attached = false;
                executor.stop();
            }
        });
    });
    simulator::usbip::UsbipServer server(bus);
    attaching = &server;
    if (!options.place.empty()) {
        const auto place = server.listen(options.place);
        if (!place) {
            return complain(simulationSentence(place.error()));
        }
        say("listening on " + *place);
    }
    obeySignals(executor, pedal);
    pedal.plugIn();
    executor.run();
    pedal.unplug();
    return attached ? finish(pedal) : cannotOfferStatus;
}

}  // namespace

int main(int argc, char** argv) {
    // Before there are threads, so that all of them leave the signals to the one that waits for them.
    const sigset_t set = handledSignals();
    ::pthread_sigmask(SIG_BLOCK, &set, nullptr);
    const auto parsed = pedal::parseOptions(argc, argv);
    if (parsed.run) {
        return run(parsed.options);
    }
    (parsed.status == 0 ? std::cout : std::cerr) << parsed.text << std::flush;
    return parsed.status;
}
