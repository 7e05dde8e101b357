#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

#include "audio/conversion.h"
#include "platform/descriptor.h"

namespace kzq {

/// A source, known to be a regular file, open for reading.
struct SourceFile {
    Descriptor file;
    std::uint64_t size = 0;
    std::optional<Conversion::Failure> failure;
};

/// Opens `path`, following symbolic links, but never a pipe or a device: that may block or have side effects.
SourceFile openSource(const std::filesystem::path& path);

}  // namespace kzq
