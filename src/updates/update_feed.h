#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace kzq {

constexpr std::uint64_t largestFeed = std::uint64_t{1} << 20U;
constexpr std::uint64_t largestPackage = 500'000'000;

/// One package of one version, as the feed describes it. Only its form is verified: `version` is a
/// version (see compareAppVersions).
struct FeedItem {
    std::string version;
    std::string shortVersion;  ///< for people; the version if the feed has none
    std::string url;
    std::uint64_t length = 0;  ///< 1 to largestPackage; 0 means anything else
    std::string signature;     ///< Ed25519 over signedText, base64
    std::string notes;         ///< plain or HTML, as given
    std::string sha256 = {};   ///< of the package, in hexadecimal digits
    // What it is for; empty: see isFor.
    std::string os = {};             ///< "linux", or with the machine, "linux-x86_64"
    std::string channel = {};        ///< such as "beta"
    std::string minimumSystem = {};  ///< of the C library, such as "2.36"

    bool operator==(const FeedItem&) const = default;
};

/// The items of an RSS feed that have a usable version. In each, version, short version and signature are
/// elements or attributes of the enclosure ("version", "shortVersionString", "edSignature",
/// "sha256", "os", "channel", "minimumSystemVersion", in any namespace), url and length its attributes, the
/// notes are the description. Nothing if the document is broken, not RSS, longer than largestFeed or has a
/// document type, which no feed needs. Any thread.
std::optional<std::vector<FeedItem>> feedItems(std::span<const std::uint8_t> document);

/// The kind of a package, by the end of its address.
enum class PackageKind { other, appImage, debian };
PackageKind packageKindOf(const FeedItem& item);

/// What the running program is, as items name it.
struct UpdateTarget {
    std::string version;
    std::string machine = {};               ///< "x86_64"
    std::string channel = {};               ///< that it follows besides the one without a name
    std::string system = {};                ///< version of the C library
    std::string lowest = {};                ///< below which nothing is offered; empty for none
    PackageKind kind = PackageKind::other;  ///< that can be installed
};

/// Whether an item is for this system: one that names none is if its kind is one of Linux.
bool isFor(const UpdateTarget& target, const FeedItem& item);

/// The newest item for this system that is newer than the program: of the kind that can be installed, else of
/// any. Null for none.
const FeedItem* newestItem(const std::vector<FeedItem>& items, const UpdateTarget& target);

}  // namespace kzq
