#include "pedal/pedal_options.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <optional>

#include "device/commands.h"

namespace kzq::pedal {

namespace {

constexpr int usageStatus = 2;

constexpr const char* footer =
    "Signals: SIGUSR1 pulls the cable, SIGUSR2 puts it back, SIGINT and SIGTERM end the program.\n"
    "Exit status: 0; 1 when the computer has sent something that it never should (told on standard error);\n"
    "2 when the command line is not understood; 3 when the pedal cannot be offered.\n";

std::optional<unsigned> number(std::string_view text) {
    unsigned value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(value) : std::nullopt;
}

CLI::ValidationError usageError(const std::string& sentence) {
    return {sentence, CLI::ExitCodes::ValidationError};
}

void addChannel(Options& options, const std::string& text) {
    constexpr unsigned highestChannel = 255;
    const auto equals = text.find('=');
    const auto slot = number(text.substr(0, equals));
    const auto channel = equals == std::string::npos ? std::nullopt : number(text.substr(equals + 1));
    if (!slot || !channel || *slot < 1 || *slot > loopSlots || *channel < 1 || *channel > highestChannel) {
        throw usageError("--channel \"" + text + "\" is not of the form SLOT=CHANNEL, such as 3=255.");
    }
    options.channels[static_cast<std::uint8_t>(*slot - 1)] = static_cast<std::uint8_t>(*channel);
}

void addFault(Options& options, const std::string& text) {
    const auto fault = simulator::faultFromText(text);
    if (!fault) {
        throw usageError("--fault \"" + text +
                         "\" is not of the form KIND@WHERE[:COUNT][+], such as unplug@in:100.");
    }
    options.faults.push_back(*fault);
}

void addOptions(CLI::App& app, Options& options, bool& blank) {
    app.add_option(
           "--listen", options.place,
           "Offer the pedal here over USB/IP (127.0.0.1:3240; empty: nowhere). Any other address than "
           "a loopback one lets everybody on that network use it")
        ->option_text("ADDRESS:PORT");
    app.add_flag(
        "--attach", options.attach,
        "Plug the pedal into this computer, and again whenever it comes back. Needs root and the kernel "
        "module vhci-hcd");
    app.add_option("--folder", options.folder, "Keep the loops as WAV files here")->option_text("FOLDER");
    app.add_option("--firmware", options.firmware, "The firmware's version, 4 characters (1.05)")
        ->option_text("VERSION");
    app.add_flag("--blank", blank, "A factory-blank pedal, which runs only its loader");
}

}  // namespace

ParsedOptions parseOptions(int argc, char** argv) {
    ParsedOptions parsed;
    std::vector<std::string> channels;
    std::vector<std::string> faults;
    bool blank = false;
    CLI::App app("A simulated 7306 looper pedal as a USB device.", "kzq7306-pedal");
    app.footer(footer);
    addOptions(app, parsed.options, blank);
    app.add_option("--channel", channels, "The channel of a loop: SLOT=CHANNEL (repeatable)")
        ->option_text("PAIR")
        ->allow_extra_args(false);
    app.add_option("--fault", faults,
                   "What goes wrong: KIND@WHERE[:COUNT][+], such as unplug@in:100 (repeatable)")
        ->option_text("PLAN")
        ->allow_extra_args(false);
    try {
        app.parse(argc, argv);
        for (const auto& text : channels) {
            addChannel(parsed.options, text);
        }
        for (const auto& text : faults) {
            addFault(parsed.options, text);
        }
        if (parsed.options.firmware.size() != 4) {
            throw usageError("--firmware needs 4 characters.");
        }
        parsed.options.stage = blank ? stageFactoryBlank : stageNormal;
        parsed.run = true;
    } catch (const CLI::CallForHelp&) {
        parsed.text = app.help();
    } catch (const CLI::ParseError& error) {
        parsed.text = error.what() + std::string("\n");
        parsed.status = usageStatus;
    }
    return parsed;
}

}  // namespace kzq::pedal
