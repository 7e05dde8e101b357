#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <vector>

#include "updates/firmware_manifest.h"

namespace kzq {

using FirmwareImage = std::vector<std::uint8_t>;

/// Whether `image` is what the entry describes: its length, and its MD5 as exact text.
bool isImageOf(const FirmwareEntry& entry, std::span<const std::uint8_t> image);

/// The folder of verified firmware images, each under its entry's name. Any thread.
///
/// A folder, link or anything else but a file in an image's place is neither read through, replaced nor
/// removed.
class FirmwareCache {
  public:
    /// "Library/Application Support/com.kzq.7306/updates/firmware" in `home`; empty without a home.
    static std::filesystem::path folderIn(const std::filesystem::path& home);

    explicit FirmwareCache(std::filesystem::path folder) : folder_(std::move(folder)) {}

    /// Makes the folder with those above it, and clears it of what runs that were killed left behind. Whether
    /// it is there.
    bool prepare() const;
    const std::filesystem::path& folder() const { return folder_; }
    std::filesystem::path pathOf(const FirmwareEntry& entry) const { return folder_ / entry.name; }

    /// The verified image. A file in its place that is not the entry's image is removed. Nothing when there
    /// is none, or when the entry is not complete.
    std::optional<FirmwareImage> cached(const FirmwareEntry& entry) const;
    /// Whether `store` could put an image in place: the folder can be written and nothing is there, or a
    /// file.
    bool isPlaceFor(const FirmwareEntry& entry) const;
    /// Puts a verified image into place, whole or not at all. Whether it is there.
    bool store(const FirmwareEntry& entry, std::span<const std::uint8_t> image) const;

  private:
    const std::filesystem::path folder_;
};

}  // namespace kzq
