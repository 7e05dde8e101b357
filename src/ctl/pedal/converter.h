#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <functional>

#include "operations/conversion_note.h"
#include "platform/result.h"

namespace kzq::ctl {

/// A file to be converted into the pedal's format.
struct ConversionOrder {
    std::filesystem::path source;
    /// The new file, which is never put in the place of another; or a folder for a file with a name of its
    /// own.
    std::filesystem::path output;
    std::function<void(std::uint64_t frames)> progress = {};  ///< how much is done; on the converting thread
    const std::atomic<bool>* cancelled = nullptr;             ///< set by anybody to end it
    bool sync = false;                                        ///< wait until the output is on the disk
    bool salvage = false;                                     ///< take what there is of a damaged source
    bool normalize = false;                                   ///< to a true peak of -1 dB
};

/// A WAV file with a header of 44 bytes.
struct ConvertedFile {
    std::filesystem::path path;
    std::uint64_t frames = 0;
    ConversionNote note = {};
};

/// On failure nothing is left behind. Blocks; any thread.
using Converter = std::function<Result<ConvertedFile>(const ConversionOrder&)>;

}  // namespace kzq::ctl
