#include "device/libusb/lock_holder.h"

#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <sstream>

namespace kzq {

namespace {

/// As the kernel writes it: "00:06:567". The files of devices are on a file system for which stat gives the
/// same device.
std::string lockedName(const struct stat& about) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%02x:%02x:%ju", major(about.st_dev), minor(about.st_dev),
                  static_cast<std::uintmax_t>(about.st_ino));
    return text.data();
}

/// Of a line such as "1: FLOCK  ADVISORY  WRITE 1234 00:06:567 0 EOF"; 0 if it is about another file.
int holderIn(const std::string& line, const std::string& name) {
    std::istringstream words(line);
    std::string number;
    std::string kind;
    std::string mode;
    std::string access;
    std::string file;
    int process = 0;
    words >> number >> kind >> mode >> access >> process >> file;
    return words && kind == "FLOCK" && file == name ? process : 0;
}

}  // namespace

std::optional<LockHolder> lockHolder(const std::filesystem::path& file, const ProcessPlaces& places) {
    struct stat about {};
    if (::stat(file.c_str(), &about) != 0) {
        return std::nullopt;
    }
    std::ifstream locks(places.locks);
    for (std::string line; std::getline(locks, line);) {
        const int process = holderIn(line, lockedName(about));
        std::ifstream name(places.processes / std::to_string(process) / "comm");
        if (std::string program; process > 0 && std::getline(name, program)) {
            return LockHolder{program, process};
        }
    }
    return std::nullopt;
}

}  // namespace kzq
