#include "platform/unique_name.h"

#include <sys/random.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>

#include "platform/bytes.h"

namespace kzq {
namespace {

constexpr std::string_view hiddenStart = ".kzq7306-";
constexpr std::string_view hiddenEnd = ".part";

}  // namespace

std::string randomDigits(std::size_t bytes) {
    Bytes noise(bytes);
    if (::getrandom(noise.data(), noise.size(), 0) < 0) {
        noise.assign(bytes,
                     0);  // what is then made under that name fails on the one before, and replaces none
    }
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (const std::uint8_t byte : noise) {
        text += digits[byte >> 4U];
        text += digits[byte & 15U];
    }
    return text;
}

std::string hiddenName() {
    return std::string(hiddenStart) + std::to_string(::getpid()) + "-" + randomDigits(8) +
           std::string(hiddenEnd);
}

bool isHiddenName(std::string_view name) {
    return name.starts_with(hiddenStart) && name.ends_with(hiddenEnd);
}

std::string freshUuid() {
    std::string text = randomDigits(16);
    std::ranges::transform(text, text.begin(), [](unsigned char digit) { return std::toupper(digit); });
    text[12] = '4';  // version 4: random
    constexpr std::string_view usualVariant = "89AB";
    text[16] = usualVariant[static_cast<unsigned char>(text[16]) % usualVariant.size()];
    for (const std::size_t hyphen : {8U, 13U, 18U, 23U}) {
        text.insert(hyphen, 1, '-');
    }
    return text;
}

}  // namespace kzq
