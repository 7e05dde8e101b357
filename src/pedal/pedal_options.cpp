#include "pedal/pedal_options.h"

#include <charconv>
#include <optional>
#include <utility>

#include "device/wire.h"
#include "loops/facts.h"
#include "pedal/command_line.h"

namespace kzq::pedal {

namespace {

constexpr int usageStatus = 2;

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
        throw usageError("--channel \"" + text + "\" must have the form SLOT=CHANNEL, such as 3=255.");
    }
    options.channels[static_cast<std::uint8_t>(*slot - 1)] = static_cast<std::uint8_t>(*channel);
}

void addFault(Options& options, const std::string& text) {
    const auto fault = simulator::faultFromText(text);
    if (!fault) {
        throw usageError("--fault \"" + text +
                         "\" must have the form KIND@WHERE[:COUNT][+], such as unplug@in:100.");
    }
    options.faults.push_back(*fault);
}

}  // namespace

ParsedOptions parseOptions(int argc, char** argv) {
    ParsedOptions parsed;
    CommandLine line;
    try {
        line.app.parse(argc, argv);
        for (const auto& text : line.channels) {
            addChannel(line.options, text);
        }
        for (const auto& text : line.faults) {
            addFault(line.options, text);
        }
        if (line.options.firmware.size() != 4) {
            throw usageError("--firmware requires 4 characters.");
        }
        line.options.stage = line.blank ? stageFactoryBlank : stageNormal;
        parsed.options = std::move(line.options);
        parsed.run = true;
    } catch (const CLI::CallForHelp&) {
        parsed.text = line.app.help();
    } catch (const CLI::CallForVersion& version) {
        parsed.text = version.what() + std::string("\n");
    } catch (const CLI::ParseError& error) {
        parsed.text = std::string("kzq7306-pedal: ") + error.what() + "\n";
        parsed.status = usageStatus;
    }
    return parsed;
}

}  // namespace kzq::pedal
