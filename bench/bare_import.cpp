// The least that saving loops can cost: each file of a folder is read, copied piece by piece, written and
// synced.
//   bare_import FROM TO

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>

#include "device/wire.h"
#include "platform/descriptor.h"
#include "platform/write_all.h"

namespace {

bool save(const std::filesystem::path& from, const std::filesystem::path& to) {
    const kzq::Descriptor in(::open(from.c_str(), O_RDONLY | O_CLOEXEC));
    const kzq::Descriptor out(::open(to.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0666));
    const auto size = std::filesystem::file_size(from);
    const std::unique_ptr<std::uint8_t[]> loop(new std::uint8_t[size]);
    constexpr std::size_t blockSize = 1U << 16U;
    const std::unique_ptr<std::uint8_t[]> block(new std::uint8_t[blockSize]);
    for (std::size_t came = 0; came < size;) {
        const auto count = ::read(in.get(), block.get(), blockSize);
        if (count <= 0) {
            return false;
        }
        const auto length = static_cast<std::size_t>(count);
        for (std::size_t done = 0; done < length; done += kzq::transferPiece) {
            std::memcpy(loop.get() + came + done, block.get() + done,
                        std::min(length - done, kzq::transferPiece));
        }
        came += length;
    }
    return kzq::writeAll(out.get(), {loop.get(), size}) == 0 && ::fsync(out.get()) == 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        return EXIT_FAILURE;
    }
    for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
        if (!save(entry.path(), argv[2] / entry.path().filename())) {
            return EXIT_FAILURE;
        }
    }
    return EXIT_SUCCESS;
}
