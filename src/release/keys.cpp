#include "release/keys.h"

#include <sodium.h>

#include <cerrno>
#include <span>

#include "platform/new_name.h"
#include "platform/plain_file.h"
#include "platform/write_all.h"

namespace kzq::release {
namespace {

constexpr int base64 = sodium_base64_VARIANT_ORIGINAL;
constexpr mode_t ownerOnly = 0600;
constexpr std::uint64_t longestFile = 200;

std::string encoded(std::span<const std::uint8_t> bytes) {
    std::string text(sodium_base64_encoded_len(bytes.size(), base64), '\0');
    sodium_bin2base64(text.data(), text.size(), bytes.data(), bytes.size(), base64);
    text.pop_back();  // a zero byte
    return text;
}

}  // namespace

MakerKey MakerKey::make() {
    MakerKey made;
    UpdateKey ignored{};
    crypto_sign_keypair(ignored.data(), made.secret_.data());
    return made;
}

Result<MakerKey> MakerKey::load(const std::filesystem::path& file) {
    const auto bytes = readPlainFile(file, longestFile, Links::followed);
    if (!bytes) {
        return bytes.error();
    }
    MakerKey key;
    std::size_t length = 0;
    const int failed = sodium_base642bin(key.secret_.data(), key.secret_.size(),
                                         reinterpret_cast<const char*>(bytes->data()), bytes->size(), "\n",
                                         &length, nullptr, base64);
    if (failed != 0 || length != key.secret_.size()) {
        return Trouble{Trouble::Kind::file, file.string(), 0, "it is not a key"};
    }
    return key;
}

Result<void> MakerKey::save(const std::filesystem::path& path) const {
    const auto file = openNew(path, ownerOnly);
    const auto text = encoded(secret_) + "\n";
    const int error =
        file ? writeAll(file.get(), {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()})
             : errno;
    return error == 0 ? Result<void>() : Trouble{Trouble::Kind::file, path.string(), error};
}

UpdateKey MakerKey::publicKey() const {
    UpdateKey key{};
    crypto_sign_ed25519_sk_to_pk(key.data(), secret_.data());
    return key;
}

std::string MakerKey::publicText() const {
    return encoded(publicKey());
}

std::string MakerKey::sign(const std::string& text) const {
    UpdateSignature signature{};
    crypto_sign_detached(signature.data(), nullptr, reinterpret_cast<const std::uint8_t*>(text.data()),
                         text.size(), secret_.data());
    return encoded(signature);
}

}  // namespace kzq::release
