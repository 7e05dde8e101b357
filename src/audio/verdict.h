#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "audio/source_facts.h"
#include "platform/trouble.h"

namespace kzq {

/// Whether a converted file is all that there was.
enum class Verdict : std::uint8_t {
    exact,     ///< the count or checksum in the source agrees
    whole,     ///< no fault was seen, but the source has nothing to compare with
    shortened  ///< part of the source is missing or cannot be read
};

/// What programs read: "exact".
const char* verdictName(Verdict verdict);

/// What the decoder made of a source.
struct Decoded {
    std::uint64_t frames = 0;  ///< at the pedal's rate
    bool stumbled = false;     ///< it gave up at a fault, and was then told to go on
    bool complained = false;
    std::string md5;  ///< of the source's samples, if it was asked for
};

struct Judgement {
    Verdict verdict = Verdict::whole;
    /// What is wrong with a shortened source: endsEarly or broken; `words` says how many milliseconds are
    /// missing, if that is known.
    std::optional<Trouble> flaw;
};

/// Frames at the pedal's rate.
std::uint64_t resampled(std::uint64_t frames, std::uint64_t rate);

/// What the headers alone say: nothing if the source is not shorter than they promise. `rate` is the
/// source's.
std::optional<Trouble> flawIn(const SourceFacts& facts, std::uint64_t rate);

Judgement judge(const SourceFacts& facts, std::uint64_t rate, const Decoded& decoded);

}  // namespace kzq
