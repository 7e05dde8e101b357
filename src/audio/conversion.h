#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "audio/decoder_arguments.h"
#include "audio/decoder_turns.h"
#include "audio/locked_child.h"
#include "audio/verdict.h"
#include "platform/result.h"

namespace kzq {

/// Converts audio files to the pedal's format: WAV with a header of 44 bytes, 24-bit, 44,100 Hz, stereo.
///
/// 44,100 Hz with 24 bits or fewer passes bit for bit; other rates come out with round(n * 44100 / rate)
/// frames. Mono becomes two equal sides; more than two channels are mixed down. What is louder than full
/// scale is turned down as a whole. Of long sources only the first `mostFrames` frames are converted, one
/// more than the pedal holds, so that the count shows that it does not fit.
///
/// Decoding is done by ffmpeg in a locked-down child process, one at a time. Objects hold no state of a
/// conversion: any thread, several at once.
class Conversion {
  public:
    static constexpr std::uint64_t mostFrames = mostConvertedFrames;

    struct Options {
        /// The new file; or an existing folder, in which we choose a name. Nothing is ever overwritten.
        std::filesystem::path output;
        /// Called with the number of frames done, on the converting thread. It stands still while a source is
        /// decoded once more.
        std::function<void(std::uint64_t)> progress = nullptr;
        /// Set it to end the conversion within 50 ms.
        const std::atomic<bool>* cancelled = nullptr;
        /// Waits until the output is on the disk.
        bool sync = false;
        /// Takes what there is of a source that is shortened; otherwise it is refused as endsEarly or broken.
        bool salvage = false;
        /// Brings the true peak to -1 dB of full scale.
        bool normalize = false;
        /// Takes Ogg Vorbis, Opus, WavPack, Wave64 and CAF, too.
        bool everyKind = false;
        std::string ffmpeg = "/usr/bin/ffmpeg";
        ChildPatience patience = {};  ///< with each decoder, from its start
        /// The conversion waits for one before it decodes, and keeps it until the source is decoded for the
        /// last time.
        DecoderTurns* turns = &DecoderTurns::ofThisProgram();
    };

    /// Belongs to the caller.
    struct File {
        std::filesystem::path path;
        std::uint64_t frames = 0;
        Verdict verdict = Verdict::whole;
        std::optional<Trouble> flaw = {};  ///< of a shortened source: endsEarly or broken
        double gain = 1;                   ///< not 1 if it was turned down or normalized
        bool silenced = false;             ///< some samples were no numbers, or infinite, and became silence
    };

    explicit Conversion(Options options) : options_(std::move(options)) {}

    /// Blocks. On failure nothing is left behind. `where` is then the source; it is also logged, with what
    /// the decoder said.
    Result<File> convert(const std::filesystem::path& source) const;

  private:
    Options options_;
};

}  // namespace kzq
