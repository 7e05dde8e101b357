#pragma once

#include <cstdint>
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

/// The SHA-256 of bytes that come in pieces, of any length together. One thread.
class RunningSHA256 : Fixed {
  public:
    RunningSHA256();
    ~RunningSHA256();

    void add(std::span<const std::uint8_t> piece);
    /// Of all so far, as above.
    std::string hexadecimal() const;

  private:
    std::unique_ptr<QCryptographicHash> hash_;
};

}  // namespace kzq
