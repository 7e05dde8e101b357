#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>

#include "platform/descriptor.h"
#include "platform/fixed.h"
#include "platform/result.h"
#include "updates/update_feed.h"
#include "updates/update_signature.h"

namespace kzq {

/// A package being downloaded: "<final name>.part" beside its final place, until it is verified and moved
/// there. Otherwise it is removed with the object. A lock on the file keeps a second program from writing
/// into it. One thread at a time.
class UpdateDownload : Fixed {
  public:
    explicit UpdateDownload(std::filesystem::path place);
    ~UpdateDownload();

    // Of a failure, `where` says which step it was, in words for the user; `error` may be an errno value.

    Result<void> open();
    Result<void> append(std::span<const std::uint8_t> bytes);
    /// Checks length and signature of the file, and syncs it to the disk.
    Result<void> verify(const FeedItem& item, std::span<const UpdateKey> keys);
    /// Moves a verified package into place with these permissions, by one rename.
    Result<void> place(std::filesystem::perms permissions);

    const std::filesystem::path& part() const { return part_; }

  private:
    bool isStillOurs() const;
    bool isPrivate() const;

    const std::filesystem::path place_;
    const std::filesystem::path part_;
    Descriptor file_;
    bool verified_ = false;
};

}  // namespace kzq
