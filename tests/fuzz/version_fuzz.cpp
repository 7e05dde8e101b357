// Compares the readers of version texts and numbers with a pattern and the C library.

#include <algorithm>
#include <cstdlib>
#include <regex>
#include <string>

#include "fuzz_check.h"
#include "updates/app_version.h"
#include "updates/firmware_version.h"

namespace {

using kzq::FirmwareVersion;

/// strtoull clamps to its highest number, as the reader does.
FirmwareVersion readNaively(const std::string& text) {
    static const std::regex pattern("([0-9]+)\\.([0-9][0-9])[a-z]?");
    std::smatch parts;
    if (!std::regex_match(text, parts, pattern)) {
        return {};
    }
    return {std::strtoull(parts[1].str().c_str(), nullptr, 10),
            std::strtoull(parts[2].str().c_str(), nullptr, 10), 0};
}

void checkFirmware(const std::string& text) {
    const auto version = kzq::FirmwareVersionFromString(text);
    require(version == readNaively(text), "the version is what the pattern says");
    require(version.minor <= 99, "the minor number has two digits");
}

void checkNumber(const std::string& text) {
    static const std::regex pattern("-?([0-9]+\\.?[0-9]*|\\.[0-9]+)");
    const auto number = kzq::numberWithString(text);
    require(!number || std::regex_match(text, pattern), "only plain decimal texts are numbers");
    require(!number || *number == std::strtod(text.c_str(), nullptr), "the number is the C library's");
}

void checkOrder(const std::string& left, const std::string& right) {
    const auto order = kzq::compareAppVersions(left, right);
    require(order.has_value() == (kzq::isAppVersion(left) && kzq::isAppVersion(right)),
            "versions have an order");
    if (order) {
        const auto back = kzq::compareAppVersions(right, left);
        require((*order < 0) == (*back > 0) && (*order == 0) == (*back == 0), "the order is one");
        require((kzq::compareAppVersions(left + ".0", left).value_or(std::strong_ordering::equal)) == 0,
                "a zero at the end changes nothing");
    }
    static const std::regex pattern("[0-9]+(\\.[0-9]+){0,7}");
    require(!kzq::isAppVersion(left) || std::regex_match(left, pattern), "numbers and points");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t size) {
    const std::string text(input, input + size);
    checkFirmware(text);
    checkNumber(text);
    const auto middle = std::min(text.find(' '), text.size());
    checkOrder(text.substr(0, middle), text.substr(std::min(middle + 1, text.size())));
    return 0;
}
