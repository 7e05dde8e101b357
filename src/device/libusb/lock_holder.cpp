#include "device/libusb/lock_holder.h"

#include <sys/stat.h>

#include <fstream>
#include <sstream>

namespace kzq {

namespace {

/// Of a line such as "1: FLOCK  ADVISORY  WRITE 1234 00:06:567 0 EOF"; 0 if it is about another file. The
/// device before the inode is left out: some file systems show another one there than stat does.
int holderIn(const std::string& line, const std::string& inode) {
    std::istringstream words(line);
    std::string number;
    std::string kind;
    std::string mode;
    std::string access;
    std::string file;
    int process = 0;
    words >> number >> kind >> mode >> access >> process >> file;
    return words && kind == "FLOCK" && file.ends_with(":" + inode) ? process : 0;
}

}  // namespace

std::optional<std::string> lockHolder(const std::filesystem::path& file, const ProcessPlaces& places) {
    struct stat about {};
    if (::stat(file.c_str(), &about) != 0) {
        return std::nullopt;
    }
    std::ifstream locks(places.locks);
    for (std::string line; std::getline(locks, line);) {
        const int process = holderIn(line, std::to_string(about.st_ino));
        std::ifstream name(places.processes / std::to_string(process) / "comm");
        if (std::string program; process > 0 && std::getline(name, program)) {
            return program + " (process " + std::to_string(process) + ")";
        }
    }
    return std::nullopt;
}

}  // namespace kzq
