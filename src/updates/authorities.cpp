#include "updates/authorities.h"

#include <cstdint>

#include "platform/plain_file.h"

namespace kzq {

std::optional<std::string> authoritiesIn(const std::filesystem::path& file) {
    constexpr std::uint64_t longest = 1U << 24U;
    if (file.empty()) {
        return std::string();
    }
    const auto bytes = readPlainFile(file, longest, Links::followed);
    return bytes && !bytes->empty() ? std::optional(std::string(bytes->begin(), bytes->end())) : std::nullopt;
}

}  // namespace kzq
