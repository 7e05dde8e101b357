#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace kzq {

using UpdateKey = std::array<std::uint8_t, 32>;
using UpdateSignature = std::array<std::uint8_t, 64>;

/// Nothing unless `text` is base64 of exactly the right length, with nothing around it.
std::optional<UpdateKey> updateKeyFrom(std::string_view text);
std::optional<UpdateSignature> updateSignatureFrom(std::string_view text);

/// Whether one of `keys` made the Ed25519 signature `signature` over `bytes`. Any thread.
bool isSignedByOne(std::span<const UpdateKey> keys, const UpdateSignature& signature,
                   std::span<const std::uint8_t> bytes);

}  // namespace kzq
