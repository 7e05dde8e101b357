#include <QCoreApplication>
#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <system_error>

#include "platform/plain_file.h"
#include "platform/process.h"
#include "platform/run_folder.h"
#include "release/inspection.h"
#include "release/options.h"
#include "release/rehearsal.h"
#include "release/site.h"
#include "release/site_server.h"
#include "updates/update_build.h"

namespace {

using namespace kzq;
using namespace kzq::release;

constexpr int unsoundStatus = 1;
constexpr int usageStatus = 2;
constexpr int fileStatus = 6;

int complain(int status, const std::string& sentence) {
    std::cerr << "kzq7306-release: " << sentence << std::endl;
    return status;
}

int complain(const Trouble& trouble) {
    const auto why = trouble.error != 0       ? std::generic_category().message(trouble.error)
                     : !trouble.words.empty() ? trouble.words
                                              : "it is no plain file, or too long";
    return complain(fileStatus, trouble.where + ": " + why + ".");
}

void say(const std::string& line) {
    std::cout << line << std::endl;
}

int makeKeys(const Options& options) {
    const auto key = MakerKey::make();
    if (const auto saved = key.save(options.file); !saved) {
        return complain(saved.error());
    }
    say("The secret key is in " + options.file.string() + ". Keep it safe, and never publish it.");
    say("Build the programs with its public key: -DKZQ_UPDATE_KEYS=" + key.publicText());
    return EXIT_SUCCESS;
}

/// The maker's key, if one is named; a trouble has been complained about.
Result<std::optional<MakerKey>> keyOf(const Options& options) {
    if (options.key.empty()) {
        return std::optional<MakerKey>();
    }
    return MakerKey::load(options.key).map([](const MakerKey& key) { return std::optional(key); });
}

int addFirmware(const Options& options, const Site& site) {
    const auto key = keyOf(options);
    if (!key) {
        return complain(key.error());
    }
    const auto entry = site.add(Site::Firmware{options.file, options.version, options.changes}, *key);
    if (!entry) {
        return complain(entry.error());
    }
    say("Firmware " + entry->version + " is listed, " + (*key ? "signed" : "not signed") +
        ", with the serial " + std::to_string(entry->serial) + ".");
    return EXIT_SUCCESS;
}

int addPackage(const Options& options, const Site& site) {
    const auto key = keyOf(options);
    if (!key) {
        return complain(key.error());
    }
    FeedItem item;
    item.version = item.shortVersion = options.version;
    item.channel = options.channel;
    item.minimumSystem = options.minimumSystem;
    item.os = options.os.empty() ? "linux-" + targetOf(UpdateBuild::ofThisProgram(), {}).machine : options.os;
    if (!options.notes.empty()) {
        const auto notes = readPlainFile(options.notes, largestFeed, Links::followed);
        if (!notes) {
            return complain(notes.error());
        }
        item.notes.assign(notes->begin(), notes->end());
    }
    const auto listed =
        site.add(Site::Package{options.file, item, options.staging ? Feed::staging : Feed::normal}, *key);
    if (!listed) {
        return complain(listed.error());
    }
    say("Version " + listed->version + " is listed for " + listed->os + ", " +
        (*key ? "signed" : "not signed") + ": " + listed->url);
    return EXIT_SUCCESS;
}

int sign(const Options& options, const Site& site) {
    const auto key = MakerKey::load(options.key);
    const auto count = key ? site.sign(*key) : Result<std::size_t>(key.error());
    if (!count) {
        return complain(count.error());
    }
    say("Signed: " + std::to_string(*count) + ".");
    return EXIT_SUCCESS;
}

/// Those that were named, or those of this build. Nothing if one is no key.
std::optional<std::vector<UpdateKey>> trusted(const Options& options) {
    if (options.trusted.empty()) {
        return UpdateBuild::ofThisProgram().keys;
    }
    std::vector<UpdateKey> keys;
    for (const auto& text : options.trusted) {
        const auto key = updateKeyFrom(text);
        if (!key) {
            return std::nullopt;
        }
        keys.push_back(*key);
    }
    return keys;
}

int verify(const Options& options, const Site& site, const std::vector<UpdateKey>& keys) {
    const auto scratch = RunFolder::ofThisRun().path();
    if (!scratch) {
        return complain(fileStatus, "there is no folder for temporary files.");
    }
    const auto inspection = inspect(site, keys, *scratch, options.start);
    for (const auto& line : inspection.lines) {
        say(line);
    }
    return inspection.sound ? EXIT_SUCCESS : unsoundStatus;
}

int serve(const Options& options) {
    const auto certificates = Certificates::make("IP:" + options.address);
    if (!certificates) {
        return complain(fileStatus, "openssl made no certificate. Install openssl.");
    }
    std::ofstream authority(options.authority);
    authority << certificates->authority << std::flush;
    if (!authority) {
        return complain(fileStatus, options.authority.string() + " cannot be written.");
    }
    const auto server = SiteServer::start({.folder = options.site,
                                           .certificates = *certificates,
                                           .address = options.address,
                                           .port = options.port,
                                           .bytesPerSecond = options.bytesPerSecond,
                                           .requested = say});
    if (!server) {
        return complain(fileStatus,
                        "cannot listen on " + options.address + ":" + std::to_string(options.port) + ".");
    }
    say("Serving " + options.site.string() + ". Start the programs with:");
    say("  --host " + (*server)->host() + " --authorities " + options.authority.string());
    return QCoreApplication::exec();
}

int run(const Options& options) {
    const Site site(options.site, options.host);
    const auto keys = trusted(options);
    if (!keys) {
        return complain(usageStatus, "--trust needs a public key, as \"keys\" prints it.");
    }
    switch (options.action) {
        case Action::keys:
            return makeKeys(options);
        case Action::firmware:
            return addFirmware(options, site);
        case Action::package:
            return addPackage(options, site);
        case Action::sign:
            return sign(options, site);
        case Action::verify:
            return verify(options, site, *keys);
        case Action::serve:
            return serve(options);
        case Action::rehearse:
            break;
    }
    if (keys->empty()) {
        say("No key is pinned, so signatures are not checked: --trust KEY.");
    }
    const bool runs = rehearse({options.site, *keys, options.from, options.blank}, std::cout);
    say(runs ? "The rehearsal went well." : "The rehearsal FAILED.");
    return runs ? EXIT_SUCCESS : unsoundStatus;
}

}  // namespace

int main(int argc, char** argv) {
    if (!occupyStandardStreams()) {
        std::_Exit(fileStatus);
    }
    ignoreWriteSignals();
    CommandLine line;
    try {
        line.app.parse(argc, argv);
    } catch (const CLI::Success& asked) {  // help or version
        return line.app.exit(asked);
    } catch (const CLI::ParseError& problem) {
        return complain(usageStatus, problem.what());
    }
    const QCoreApplication application(argc, argv);
    RunFolder::ofThisRun().sweep();
    const int status = run(line.options);
    RunFolder::ofThisRun().remove();
    std::cout.flush();
    std::_Exit(status);  // the simulated pedal's threads may still sleep
}
