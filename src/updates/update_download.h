#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>

#include "platform/descriptor.h"
#include "platform/fixed.h"
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

    /// Each step returns whether it succeeded; `reason` says why not.
    bool open();
    bool append(std::span<const std::uint8_t> bytes);
    /// Checks length and signature of the file, and syncs it to the disk.
    bool verify(const FeedItem& item, std::span<const UpdateKey> keys);
    /// Moves a verified package into place with these permissions, by one rename.
    bool place(std::filesystem::perms permissions);

    const std::filesystem::path& part() const { return part_; }
    const std::string& reason() const { return reason_; }

  private:
    bool fail(const std::string& what, int error);
    bool isStillOurs() const;
    bool isPrivate() const;

    const std::filesystem::path place_;
    const std::filesystem::path part_;
    Descriptor file_;
    bool verified_ = false;
    std::string reason_;
};

}  // namespace kzq
