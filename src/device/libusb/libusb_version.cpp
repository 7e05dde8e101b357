#include "device/libusb/libusb_version.h"

#include <libusb.h>

namespace kzq {

std::string libusbVersion() {
    const auto& version = *libusb_get_version();
    return std::to_string(version.major) + "." + std::to_string(version.minor) + "." +
           std::to_string(version.micro) + version.rc;
}

}  // namespace kzq
