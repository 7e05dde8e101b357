#include "release/options.h"

namespace kzq::release {
namespace {

constexpr const char* footer =
    "Exit status:\n"
    "  0  success\n"
    "  1  what is published would not be installed\n"
    "  2  wrong usage\n"
    "  6  a file could not be read or written\n";

}  // namespace

CommandLine::CommandLine()
    : app("Makes, signs, checks and rehearses what the programs download from the maker's web server.",
          "kzq7306-release") {
    app.set_help_flag("-h,--help", "Show this help and exit");
    app.set_version_flag("-V,--version", "kzq7306-release " KZQ_VERSION, "Show the version and exit");
    app.footer(footer);
    addMaking();
    addChecking();
    app.require_subcommand(1);
}

CLI::App* CommandLine::add(const char* name, Action action, const char* description) {
    auto* const command = app.add_subcommand(name, description);
    command->callback([this, action] { options.action = action; });
    return command;
}

void CommandLine::addSite(CLI::App& command) {
    command.add_option("--site", options.site, "The folder that is published as the root of the web server")
        ->option_text("FOLDER")
        ->required();
    command.add_option("--host", options.host, "The web server's name (default: the one the programs know)")
        ->option_text("HOST[:PORT]");
}

void CommandLine::addKey(CLI::App& command, bool required) {
    command.add_option("--key", options.key, "Sign with the secret key in this file")
        ->option_text("FILE")
        ->required(required);
}

void CommandLine::addTrusted(CLI::App& command) {
    command
        .add_option("--trust", options.trusted,
                    "A public key to check signatures with (repeatable; default: those of this build)")
        ->option_text("KEY")
        ->allow_extra_args(false);
}

void CommandLine::addMaking() {
    auto* const keys = add("keys", Action::keys, "Make a pair of keys: the secret one goes into a new file");
    keys->add_option("FILE", options.file, "The new file")->required();

    auto* const firmware = add("firmware", Action::firmware, "List a firmware image as the newest");
    firmware->add_option("FILE", options.file, "The image")->required();
    firmware->add_option("--version", options.version, "Its version, such as 1.06")
        ->option_text("VERSION")
        ->required();
    firmware->add_option("--change", options.changes, "A line of the release notes (repeatable)")
        ->option_text("TEXT")
        ->allow_extra_args(false);
    addSite(*firmware);
    addKey(*firmware, false);

    auto* const package =
        add("package", Action::package, "List a package of the program (.AppImage or .deb)");
    package->add_option("FILE", options.file, "The package")->required();
    package->add_option("--version", options.version, "Its version, as the program itself gives it")
        ->option_text("VERSION")
        ->required();
    package->add_option("--notes", options.notes, "The release notes, plain or HTML")->option_text("FILE");
    package->add_option("--os", options.os, "What it runs on (default: as this build, such as linux-x86_64)")
        ->option_text("SYSTEM");
    package->add_option("--channel", options.channel, "Only for programs that follow this channel")
        ->option_text("NAME");
    package
        ->add_option("--minimum-system", options.minimumSystem,
                     "The oldest C library it runs on, such as 2.36")
        ->option_text("VERSION");
    package->add_flag("--staging", options.staging, "List it in the staging feed");
    addSite(*package);
    addKey(*package, false);

    auto* const sign = add("sign", Action::sign, "Sign the newest firmware and all packages that are listed");
    addSite(*sign);
    addKey(*sign, true);
}

void CommandLine::addChecking() {
    auto* const verify = add("verify", Action::verify, "Check what is published as the programs would");
    addSite(*verify);
    addTrusted(*verify);
    verify->add_flag("--start", options.start, "Start each AppImage once with --self-check");

    auto* const serve =
        add("serve", Action::serve, "Serve the folder over HTTPS until Ctrl-C, for a rehearsal");
    addSite(*serve);
    serve->add_option("--address", options.address, "Listen on this address (default 127.0.0.1)")
        ->option_text("ADDRESS");
    serve->add_option("--port", options.port, "Listen on this port (default 4433; 0: a free one)")
        ->option_text("PORT");
    serve
        ->add_option("--authority", options.authority,
                     "Write the certificate to trust to this file (default authority.pem)")
        ->option_text("FILE");
    serve->add_option("--bytes-per-second", options.bytesPerSecond, "Answer no faster than this")
        ->option_text("NUMBER");

    auto* const rehearse =
        add("rehearse", Action::rehearse,
            "Install the newest firmware on a simulated pedal, from a server on this computer");
    addSite(*rehearse);
    addTrusted(*rehearse);
    rehearse->add_option("--from", options.from, "The firmware that the pedal runs before (default 1.00)")
        ->option_text("VERSION");
    rehearse->add_flag("--blank", options.blank, "The pedal runs only its loader");
}

}  // namespace kzq::release
