#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <vector>

#include "updates/firmware_manifest.h"

namespace kzq {

using FirmwareImage = std::vector<std::uint8_t>;

/// "Library/Application Support/com.kzq.7306/updates" in `home`, where all that concerns updates is kept;
/// empty without a home.
std::filesystem::path updatesFolderIn(const std::filesystem::path& home);

/// Whether `image` is what the entry describes: its length, its MD5 as exact text, and its SHA-256 if the
/// entry has one.
bool isImageOf(const FirmwareEntry& entry, std::span<const std::uint8_t> image);

/// The folder of verified firmware images, each under its entry's name. Any thread.
///
/// If an image's path is a folder, a link or anything else but a file, it is not read, replaced or removed.
class FirmwareCache {
  public:
    /// "firmware" in the folder for updates; empty without a home.
    static std::filesystem::path folderIn(const std::filesystem::path& home);

    explicit FirmwareCache(std::filesystem::path folder) : folder_(std::move(folder)) {}

    /// Creates the folder with its parents, and removes what killed runs left behind. Returns whether it
    /// exists.
    bool prepare() const;
    const std::filesystem::path& folder() const { return folder_; }
    std::filesystem::path pathOf(const FirmwareEntry& entry) const { return folder_ / entry.name; }

    /// The verified image. A file in its place that is not the entry's image is removed. Nothing if there
    /// is none, or if the entry is not complete.
    std::optional<FirmwareImage> cached(const FirmwareEntry& entry) const;
    /// Whether `store` could save an image: the folder is writable and the path is free or a file.
    bool isPlaceFor(const FirmwareEntry& entry) const;
    /// Saves a verified image, completely or not at all. Returns whether it is saved.
    bool store(const FirmwareEntry& entry, std::span<const std::uint8_t> image) const;

  private:
    const std::filesystem::path folder_;
};

}  // namespace kzq
