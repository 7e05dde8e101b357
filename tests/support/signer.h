#pragma once

#include <sodium.h>

#include <array>
#include <string>

#include "updates/update_signature.h"

namespace kzq::test {

/// Signs updates with a key of its own.
struct Signer {
    Signer() { crypto_sign_keypair(key.data(), secret.data()); }
    std::string sign(const std::string& text) const {
        UpdateSignature signature{};
        crypto_sign_detached(signature.data(), nullptr, reinterpret_cast<const std::uint8_t*>(text.data()),
                             text.size(), secret.data());
        std::string encoded(sodium_base64_ENCODED_LEN(64, sodium_base64_VARIANT_ORIGINAL), '\0');
        sodium_bin2base64(encoded.data(), encoded.size(), signature.data(), signature.size(),
                          sodium_base64_VARIANT_ORIGINAL);
        encoded.pop_back();
        return encoded;
    }
    UpdateKey key{};
    std::array<std::uint8_t, 64> secret{};
};

}  // namespace kzq::test
