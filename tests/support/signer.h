#pragma once

#include <string>

#include "release/keys.h"
#include "release/listings.h"

namespace kzq::test {

/// Signs updates with a key of its own.
struct Signer : release::MakerKey {
    Signer() : MakerKey(make()) {}
    UpdateKey key = publicKey();
};

inline ByteView bytesOf(const std::string& text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

/// What a feed says about `package`. Not signed.
inline FeedItem itemFor(const std::string& package, const std::string& version, const std::string& url) {
    const auto described = release::describe("package", bytesOf(package), version, {});
    return {.version = version,
            .shortVersion = version,
            .url = url,
            .length = described.size,
            .signature = {},
            .notes = "Notes",
            .sha256 = described.sha256};
}

}  // namespace kzq::test
