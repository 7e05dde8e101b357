#include "audio/verdict.h"

#include <algorithm>

#include "audio/decoder_arguments.h"
#include "loops/facts.h"

namespace kzq {
namespace {

using Kind = Trouble::Kind;

Trouble missing(Kind kind, std::uint64_t frames, std::uint64_t rate) {
    return {kind, {}, 0, frames == 0 ? "" : std::to_string((frames * 1000 + rate - 1) / rate)};
}

/// How many frames must come out at the pedal's rate, at least.
std::optional<std::uint64_t> framesDue(const SourceFacts& facts, std::uint64_t rate) {
    std::optional<std::uint64_t> due = facts.frames;
    if (const auto span = framesOfSound(facts, rate)) {
        due = span->end - span->start;
    }
    return due ? std::optional(std::min(resampled(*due, rate), mostConvertedFrames)) : std::nullopt;
}

/// A decoder takes an early end of the file for the end of the audio, unless it is in the middle of a frame.
std::optional<Trouble> flawOf(const SourceFacts& facts, std::uint64_t rate, const Decoded& decoded,
                              std::uint64_t due, std::uint64_t tolerance) {
    if (decoded.frames + tolerance < due) {
        const bool inside = !facts.truncated && (decoded.stumbled || decoded.complained);
        return missing(inside ? Kind::broken : Kind::endsEarly,
                       due - decoded.frames + resampled(facts.unreadable, rate), framesPerSecond);
    }
    if (facts.unreadable != 0) {
        return missing(Kind::broken, facts.unreadable, rate);
    }
    if (facts.truncated) {
        return flawIn(facts, rate);
    }
    const bool differs = facts.digest && !decoded.md5.empty() && decoded.md5 != facts.digest->md5;
    return decoded.stumbled || differs ? std::optional(missing(Kind::broken, 0, rate)) : std::nullopt;
}

}  // namespace

const char* verdictName(Verdict verdict) {
    return verdict == Verdict::exact ? "exact" : verdict == Verdict::whole ? "whole" : "shortened";
}

std::uint64_t resampled(std::uint64_t frames, std::uint64_t rate) {
    constexpr std::uint64_t most = 1ULL << 44U;  // far above what the pedal holds, and safe to multiply
    return (std::min(frames, most) * framesPerSecond + rate / 2) / rate;
}

std::optional<Trouble> flawIn(const SourceFacts& facts, std::uint64_t rate) {
    if (!facts.truncated) {
        return std::nullopt;
    }
    const std::uint64_t due = facts.frames.value_or(0);
    return missing(Kind::endsEarly, due - std::min(due, facts.present.value_or(due)), rate);
}

Judgement judge(const SourceFacts& facts, std::uint64_t rate, const Decoded& decoded) {
    // A resampler may round the last frame away, as may a count in other units.
    const std::uint64_t rounding = rate == framesPerSecond && !facts.sound ? 0 : 1;
    const auto due = framesDue(facts, rate);
    Judgement judgement;
    judgement.flaw = flawOf(facts, rate, decoded, due.value_or(0), rounding + resampled(facts.slack, rate));
    const std::uint64_t least = due.value_or(0);
    const bool agrees = due && decoded.frames + rounding >= least && decoded.frames <= least + rounding;
    if (judgement.flaw) {
        judgement.verdict = Verdict::shortened;
    } else if (agrees && facts.countStored) {
        judgement.verdict = Verdict::exact;
    }
    return judgement;
}

}  // namespace kzq
