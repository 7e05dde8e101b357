#include "release/rehearsal.h"

#include <iostream>
#include <mutex>

#include "ctl/speech/options.h"
#include "ctl/tool.h"
#include "device/simulator/simulation.h"
#include "platform/digest.h"
#include "platform/plain_file.h"
#include "platform/process.h"
#include "platform/run_folder.h"
#include "platform/standard_executor.h"
#include "release/site_server.h"
#include "updates/qt_http_client.h"

namespace kzq::release {
namespace {

using simulator::Simulation;

/// "firmware install --yes", as a user would have it run, without a home of theirs.
ctl::ExitCode install(StandardExecutor& executor, Simulation& simulation, HttpClient& http,
                      const std::string& manifest, const RehearsalOrder& order, std::ostream& out) {
    auto code = ctl::ExitCode::pedalRefused;
    const ctl::Environment environment{.executor = executor,
                                       .usb = simulation.port(),
                                       .out = out,
                                       .err = out,
                                       .systemMinorVersion = systemMinorVersion,
                                       .ask = [](const auto&) { return ctl::Answer::nobody; },
                                       .convert = {},
                                       .input = {},
                                       .workingFolder = [] { return RunFolder::ofThisRun().path(); },
                                       .finished =
                                           [&](ctl::ExitCode ended) {
                                               code = ended;
                                               executor.stop();
                                           },
                                       .http = &http,
                                       .manifest = manifest,
                                       .home = RunFolder::ofThisRun().path().value_or("") / "home",
                                       .keepAwake =
                                           [] {
                                               return AwakeLock{std::make_shared<int>(), {}};
                                           },
                                       .holdSignals = [](const auto&) {},
                                       .keys = order.keys};
    const auto parsed = ctl::parseOptions({"--simulate", "firmware", "install", "--yes"});
    ctl::Tool tool(*parsed.options, environment);
    executor.main([&tool] { tool.start(); });
    executor.run();
    return code;
}

/// Whether the pedal holds what is listed.
bool compare(Simulation& simulation, const Site& site, const FirmwareEntry& entry, std::ostream& out) {
    const auto file = site.fileAt(addressBeside(firmwareManifestAddress(site.host()), entry.name));
    const auto published = readPlainFile(file, largestFirmware, Links::followed);
    const auto installed = simulation.pedal().installedFirmware();
    if (!published || !installed || *published != *installed) {
        out << "The simulated pedal does not hold the published image." << std::endl;
        return false;
    }
    out << "The simulated pedal holds the published image, byte for byte: " << installed->size()
        << " bytes, SHA-256 " << SHA256String(*installed).value_or("") << "." << std::endl;
    return true;
}

}  // namespace

bool rehearse(const RehearsalOrder& order, std::ostream& out) {
    auto certificates = Certificates::make("IP:127.0.0.1");
    if (!certificates) {
        out << "openssl made no certificate. Install openssl." << std::endl;
        return false;
    }
    static std::mutex printing;
    const auto requested = [&out](const std::string& line) {
        const std::lock_guard guard(printing);
        out << "server: " << line << std::endl;
    };
    const auto server =
        SiteServer::start({.folder = order.folder, .certificates = *certificates, .requested = requested});
    if (!server) {
        out << "The server cannot listen on 127.0.0.1." << std::endl;
        return false;
    }
    const auto host = (*server)->host();
    const Site site(order.folder, host);
    const auto list = site.listAt(firmwareManifestAddress(host));
    if (!list) {
        out << list.error().where << ": " << list.error().words << "." << std::endl;
        return false;
    }
    const auto entry =
        newestFirmwareEntry({reinterpret_cast<const std::uint8_t*>(list->data()), list->size()});
    if (!entry) {
        out << "No firmware is listed." << std::endl;
        return false;
    }
    StandardExecutor executor;
    const auto simulation = Simulation::make(executor, {});
    if (!simulation) {
        return false;
    }
    auto& pedal = (*simulation)->pedal();
    pedal.setVersion(order.from);
    pedal.setNextVersion(entry->version);
    if (order.blank) {
        pedal.setStage('b');
    }
    pedal.plugIn();
    QtHttpClient http(certificates->authority);
    const auto code = install(executor, **simulation, http, firmwareManifestAddress(host), order, out);
    const bool runs = code == ctl::ExitCode::ok && compare(**simulation, site, *entry, out);
    for (const auto& violation : pedal.violations()) {
        out << "The pedal complains: " << violation << std::endl;
    }
    return runs && pedal.violations().empty();
}

}  // namespace kzq::release
