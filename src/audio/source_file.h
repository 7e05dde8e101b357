#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

#include "audio/conversion.h"
#include "platform/descriptor.h"

namespace kzq {

/// A source that was found to be a regular file, open for reading.
struct SourceFile {
    Descriptor file;
    std::uint64_t size = 0;
    std::optional<Conversion::Failure> failure;
};

/// Opens `path`, through symbolic links, without ever opening a pipe or a device: that may block, or do
/// something.
SourceFile openSource(const std::filesystem::path& path);

}  // namespace kzq
