#pragma once

#include <optional>
#include <span>
#include <string>

#include "updates/firmware_manifest.h"
#include "updates/update_feed.h"
#include "updates/update_signature.h"

namespace kzq {

// What a signature in a manifest or a feed covers: lines of text that begin with what they describe, so that
// a signature for firmware is none for a package. Any thread.

/// Name, size, SHA-256, version and serial. Nothing if one of them is missing or cannot stand in a line.
std::optional<std::string> signedText(const FirmwareEntry& entry);
/// Version, kind, system, channel, minimum system, length and SHA-256; the same.
std::optional<std::string> signedText(const FeedItem& item);

/// Whether one of `keys` made the entry's or the item's signature.
bool isSignedByOne(std::span<const UpdateKey> keys, const FirmwareEntry& entry);
bool isSignedByOne(std::span<const UpdateKey> keys, const FeedItem& item);

}  // namespace kzq
