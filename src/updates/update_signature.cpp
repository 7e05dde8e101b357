#include "updates/update_signature.h"

#include <sodium.h>

#include <algorithm>

namespace kzq {
namespace {

template <std::size_t size>
std::optional<std::array<std::uint8_t, size>> decoded(std::string_view text) {
    std::array<std::uint8_t, size> bytes{};
    std::size_t length = 0;
    const char* end = nullptr;
    const int result = sodium_base642bin(bytes.data(), bytes.size(), text.data(), text.size(), nullptr,
                                         &length, &end, sodium_base64_VARIANT_ORIGINAL);
    if (result != 0 || length != size || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return bytes;
}

}  // namespace

std::optional<UpdateKey> updateKeyFrom(std::string_view text) {
    static_assert(crypto_sign_PUBLICKEYBYTES == std::tuple_size_v<UpdateKey>);
    return decoded<crypto_sign_PUBLICKEYBYTES>(text);
}

std::optional<UpdateSignature> updateSignatureFrom(std::string_view text) {
    static_assert(crypto_sign_BYTES == std::tuple_size_v<UpdateSignature>);
    return decoded<crypto_sign_BYTES>(text);
}

bool isSignedByOne(std::span<const UpdateKey> keys, const UpdateSignature& signature,
                   std::span<const std::uint8_t> bytes) {
    if (sodium_init() < 0) {
        return false;
    }
    return std::ranges::any_of(keys, [&](const UpdateKey& key) {
        return crypto_sign_verify_detached(signature.data(), bytes.data(), bytes.size(), key.data()) == 0;
    });
}

}  // namespace kzq
