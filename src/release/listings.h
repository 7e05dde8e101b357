#pragma once

#include <string>
#include <vector>

#include "platform/bytes.h"
#include "platform/result.h"
#include "updates/firmware_manifest.h"
#include "updates/update_feed.h"

namespace kzq::release {

// What the programs download, as text: the other side of newestFirmwareEntry and feedItems. Any thread.

/// What the manifest says about this image. Not signed.
FirmwareEntry describe(const std::string& name, ByteView image, const std::string& version,
                       const std::vector<std::string>& changes);

/// The manifest with the entry at its end: `manifest` is what there is, empty for nothing. An entry of the
/// same name as the last one takes its place. Failure: `manifest` is not a list.
Result<std::string> withEntry(const std::string& manifest, const FirmwareEntry& entry);

/// A feed of these items.
std::string feedText(const std::vector<FeedItem>& items);

}  // namespace kzq::release
