#pragma once

#include <cstdint>

#include "audio/file_bytes.h"

namespace kzq {

/// Where the file continues behind the tag that starts at `offset`; `offset` itself if none does. ID3v1,
/// ID3v2, APE and Lyrics3.
std::uint64_t afterTag(const FileBytes& file, std::uint64_t offset);

/// The same behind all tags and zeros in a row, of which a file has at most some thousands.
std::uint64_t afterTags(const FileBytes& file, std::uint64_t offset);

}  // namespace kzq
