#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "audio/source_facts.h"
#include "audio/wave.h"
#include "platform/descriptor.h"
#include "platform/digest.h"
#include "platform/result.h"

namespace kzq {

/// The MD5 of a source's samples, made from what they have become: a file in the pedal's format, into which
/// they went bit for bit, and which may still be growing.
class SourceDigest {
  public:
    /// `bits` and `channels` are the source's: 8, 16 or 24, and 1 or 2.
    SourceDigest(unsigned bits, unsigned channels, Descriptor file)
        : width_(bits / 8), channels_(channels), file_(std::move(file)) {}

    /// Takes the frames that have come since. Of kind `file` if they cannot be read.
    Result<void> follow(std::uint64_t sampleBytes);
    /// In lower-case hexadecimal digits.
    std::string text() { return md5_.text(); }

  private:
    ByteView sourceSamples(ByteView frames);

    const unsigned width_;  ///< of a sample, in bytes
    const unsigned channels_;
    const Descriptor file_;
    std::uint64_t done_ = 0;
    MD5Sum md5_;
    Bytes piece_;
    Bytes samples_;
};

}  // namespace kzq
