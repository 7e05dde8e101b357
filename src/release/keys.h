#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>

#include "platform/result.h"
#include "updates/signed_text.h"
#include "updates/update_signature.h"

namespace kzq::release {

/// The maker's pair of keys. Programs are built with the public one (KZQ_UPDATE_KEYS).
class MakerKey {
  public:
    /// A new pair.
    static MakerKey make();
    /// From a file that `save` wrote. Failures: `where` is the path, `words` what is wrong.
    static Result<MakerKey> load(const std::filesystem::path& file);

    /// Into a new file that only its owner can read; an existing one is never replaced.
    Result<void> save(const std::filesystem::path& path) const;
    UpdateKey publicKey() const;
    /// As KZQ_UPDATE_KEYS takes it.
    std::string publicText() const;

    /// The signature of `text`, base64.
    std::string sign(const std::string& text) const;
    /// The entry or item, signed. False if it lacks something that is signed.
    template <class Item>
    bool sign(Item& item) const {
        const auto text = signedText(item);
        item.signature = text ? sign(*text) : std::string();
        return text.has_value();
    }

  private:
    std::array<std::uint8_t, 64> secret_{};
};

}  // namespace kzq::release
