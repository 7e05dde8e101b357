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
    std::string signature;     ///< Ed25519 over the package, base64
    std::string notes;         ///< plain or HTML, as given

    bool operator==(const FeedItem&) const = default;
};

/// The items of an RSS feed that have a usable version. In each, version, short version and signature are
/// elements or attributes of the enclosure ("version", "shortVersionString", "edSignature", in any
/// namespace), url and length its attributes, the notes are the description. Nothing if the document is
/// broken, not RSS, longer than largestFeed or has a document type, which no feed needs. Any thread.
std::optional<std::vector<FeedItem>> feedItems(std::span<const std::uint8_t> document);

/// The kind of a package, by the end of its address.
enum class PackageKind { other, appImage, debian };
PackageKind packageKindOf(const FeedItem& item);

/// The item with the highest version; among equals the first of the wanted kind, else the first. Null for
/// none.
const FeedItem* newestItem(const std::vector<FeedItem>& items, PackageKind wanted);

}  // namespace kzq
