#pragma once

#include <filesystem>
#include <span>

#include "updates/part_file.h"
#include "updates/update_feed.h"
#include "updates/update_signature.h"

namespace kzq {

/// A package being downloaded: "<final name>.part" beside its final place, until it is verified and moved
/// there. Otherwise it is removed with the object. One thread at a time. Failures are those of PartFile.
class UpdateDownload : Fixed {
  public:
    explicit UpdateDownload(std::filesystem::path place);
    ~UpdateDownload();

    Result<void> open();
    Result<void> append(ByteView bytes) { return part_.append(bytes); }
    /// Checks signature, length and digest of what was stored. An AppImage must be one.
    Result<void> verify(const FeedItem& item, std::span<const UpdateKey> keys);
    /// Makes a verified package ready to be started where it is, with these permissions. Nothing can be
    /// appended afterwards.
    Result<void> seal(std::filesystem::perms permissions);
    /// Moves a verified package into place with these permissions, by one rename.
    Result<void> place(std::filesystem::perms permissions);

    const std::filesystem::path& part() const { return part_.path(); }

  private:
    const std::filesystem::path place_;
    PartFile part_;
    bool verified_ = false;
};

}  // namespace kzq
