#include "audio/source_file.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <string>

#include "audio/conversion_failures.h"

namespace kzq {

SourceFile openSource(const std::filesystem::path& path) {
    const Descriptor place(::open(path.c_str(), O_PATH | O_CLOEXEC));
    struct stat facts {};
    if (!place || ::fstat(place.get(), &facts) != 0) {
        return {{}, 0, sourceFailure(errno)};
    }
    if (!S_ISREG(facts.st_mode)) {
        return {{},
                0,
                conversionFailure(ConversionFailure::notAFile, "This is a folder or a device, not a file.")};
    }
    const std::string self = "/proc/self/fd/" + std::to_string(place.get());
    Descriptor file(::open(self.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file) {
        return {{}, 0, sourceFailure(errno)};
    }
    return {std::move(file), static_cast<std::uint64_t>(facts.st_size), {}};
}

}  // namespace kzq
