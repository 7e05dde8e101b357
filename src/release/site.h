#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/result.h"
#include "release/keys.h"
#include "release/listings.h"
#include "updates/maker.h"

namespace kzq::release {

/// The folder that is published as the root of the maker's web server. Its lists are written anew with each
/// change, as a whole. Of a failure, `where` is the file or address and `words` says what is wrong.
class Site {
  public:
    /// `host`: see makerAddress.
    Site(std::filesystem::path folder, std::string host)
        : folder_(std::move(folder)), host_(std::move(host)) {}

    struct Firmware {
        std::filesystem::path image;
        std::string version;
        std::vector<std::string> changes;
    };
    struct Package {
        std::filesystem::path file;  ///< its extension is its kind
        FeedItem item;               ///< what is known before the file is read
        Feed feed = Feed::normal;
    };

    /// Copies the image and puts its entry at the end of the manifest, with a serial one higher than the
    /// highest so far. Without a key it is not signed.
    Result<FirmwareEntry> add(const Firmware& firmware, const std::optional<MakerKey>& key) const;
    /// Copies the package and puts its item first into the feed, in place of one of the same file.
    Result<FeedItem> add(const Package& package, const std::optional<MakerKey>& key) const;
    /// Signs the newest firmware and every package of both feeds. Returns how many signatures that are.
    Result<std::size_t> sign(const MakerKey& key) const;

    std::filesystem::path fileAt(const std::string& address) const;
    /// The text of a list; empty if there is no such file.
    Result<std::string> listAt(const std::string& address) const;
    const std::string& host() const { return host_; }

  private:
    Result<void> write(const std::string& address, ByteView bytes) const;
    Result<void> write(const std::string& address, const std::string& text) const;
    /// Failure also if writing them anew would drop something that the feed holds.
    Result<std::vector<FeedItem>> itemsAt(const std::string& address) const;

    const std::filesystem::path folder_;
    const std::string host_;
};

}  // namespace kzq::release
