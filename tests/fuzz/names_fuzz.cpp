// Versions of whatever form have one order, and whatever is typed becomes the name of a file in its folder.

#include "fuzz_check.h"
#include "platform/new_file.h"
#include "updates/app_version.h"
#include "updates/firmware_version.h"

namespace {

void checkOrder(const std::string& a, const std::string& b, const std::string& c) {
    const auto order = kzq::compareAppVersions(a, b);
    require(order.has_value() == (kzq::isAppVersion(a) && kzq::isAppVersion(b)), "versions are compared");
    require(!order || (*order > 0) == (*kzq::compareAppVersions(b, a) < 0), "the other way round");
    const auto then = kzq::compareAppVersions(b, c);
    require(!order || !then || *order > 0 || *then > 0 || *kzq::compareAppVersions(a, c) <= 0, "one order");
    require(!order || kzq::compareAppVersions(a + ".0", b) == order || !kzq::isAppVersion(a + ".0"),
            "a 0 more changes nothing");
    require(!order || *kzq::compareAppVersions(a + ".1", a) > 0 || !kzq::isAppVersion(a + ".1"),
            "a number more is newer");
    const auto firmware = kzq::FirmwareVersionFromString(a);
    require(firmware.minor < 100 && firmware.suffix == 0, "a minor number of two digits");
    require(firmware == kzq::FirmwareVersion() || kzq::FirmwareVersionFromString("0" + a) == firmware,
            "a leading 0 changes nothing");
}

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

void checkName(const std::string& typed, std::size_t reserved) {
    const auto name = kzq::fileNameComponent(typed, reserved);
    require(!name.empty() && name != "." && name != "..", "a name of its own");
    require(name.find('/') == std::string::npos && name.find('\0') == std::string::npos, "in its folder");
    require(name.size() + reserved <= 255, "it fits");
    require(kzq::fileNameComponent(name, reserved) == name, "a good name stays");
    require(name.size() >= typed.size() || name.size() + reserved + 3 >= 255, "no more is cut than must be");
    const auto end = name.size();
    const bool cut = end < typed.size() && isContinuation(typed[end]);
    require(!cut || (isContinuation(typed[end + 1]) && isContinuation(typed[end + 2])),
            "no character is cut");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t size) {
    auto lines = linesOf(input, size);
    lines.resize(3);
    checkOrder(lines[0], lines[1], lines[2]);
    checkName(std::string(input, input + size), size % 30);
    return 0;
}
