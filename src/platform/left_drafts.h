#pragma once

#include <filesystem>

namespace kzq {

// Files of this user that did not get their final name: see hiddenName. Any thread.

/// Removes from `folder` what killed runs left of drafts. Each is locked while it is written, so it does not
/// matter how long ago that was. On file systems that another computer may use too, only what is a day old
/// goes; where files cannot be locked, all stay.
void removeDeadDrafts(const std::filesystem::path& folder);

/// Removes what nobody has touched for a day: of downloads, which another run goes on with until then.
void removeOldDrafts(const std::filesystem::path& folder);

}  // namespace kzq
