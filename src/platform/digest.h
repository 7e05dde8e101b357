#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/fixed.h"

class QCryptographicHash;

namespace kzq {

// Digests of byte buffers; any thread. The raw digests are 16 bytes (MD5) and 32 bytes (SHA-256). A view
// without a pointer (data() is null) has no digest. Lengths count modulo 2^32, far above any firmware image.

/// `algorithm` 0 is MD5, anything else SHA-256.
std::optional<std::vector<std::uint8_t>> hash(std::span<const std::uint8_t> bytes, int algorithm);
std::optional<std::vector<std::uint8_t>> MD5(std::span<const std::uint8_t> bytes);
std::optional<std::vector<std::uint8_t>> SHA256(std::span<const std::uint8_t> bytes);
/// The same in lower-case hexadecimal digits.
std::optional<std::string> MD5String(std::span<const std::uint8_t> bytes);
std::optional<std::string> SHA256String(std::span<const std::uint8_t> bytes);
/// The same of bytes that come in pieces; an empty one is the end.
std::string SHA256StringOf(const std::function<std::span<const std::uint8_t>()>& next);

/// The MD5 of what comes in pieces. One thread at a time.
class MD5Sum : Fixed {
  public:
    MD5Sum();
    ~MD5Sum();

    void add(std::span<const std::uint8_t> bytes);
    /// In lower-case hexadecimal digits.
    std::string text() const;

  private:
    std::unique_ptr<QCryptographicHash> digester_;
};

}  // namespace kzq
