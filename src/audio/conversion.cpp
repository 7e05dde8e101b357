#include "audio/conversion.h"

#include <algorithm>

#include "audio/conversion_failures.h"
#include "audio/decoder_arguments.h"
#include "audio/source_file.h"
#include "audio/wave.h"
#include "audio/wave_output.h"
#include "loops/facts.h"
#include "platform/log.h"
#include "platform/unique_name.h"

namespace kzq {
namespace {

using Failure = std::optional<Conversion::Failure>;

constexpr std::uint64_t lowestRate = 4'000;
constexpr std::uint64_t highestRate = 768'000;
constexpr std::size_t mostProbeText = 1 << 16;

std::uint64_t resampled(std::uint64_t frames, std::uint64_t rate) {
    return (frames * framesPerSecond + rate / 2) / rate;
}

/// One running conversion; each step returns its failure, if any.
class Run {
  public:
    Run(const Conversion::Options& options, const std::filesystem::path& source)
        : options_(options), sourcePath_(source), outputPath_(options.output), output_(resolvedOutput()) {}

    Failure all() {
        using Step = Failure (Run::*)();
        for (const Step step : {&Run::open, &Run::readHeaders, &Run::probe, &Run::openOutput, &Run::decode,
                                &Run::checkLength, &Run::finish}) {
            if (cancelled()) {
                return conversionFailure(ConversionFailure::cancelled);
            }
            if (Failure failure = (this->*step)()) {
                return failure;
            }
        }
        return std::nullopt;
    }

    const std::filesystem::path& outputPath() const { return outputPath_; }
    std::uint64_t frames() const { return output_.sampleBytes() / frameBytes; }
    const std::string& complaint() const { return complaint_; }

  private:
    const std::filesystem::path& resolvedOutput() {
        std::error_code error;
        if (std::filesystem::is_directory(outputPath_, error)) {
            outputPath_ /= freshUuid() + ".wav";
        } else if (!outputPath_.has_parent_path()) {
            outputPath_ = "." / outputPath_;
        }
        return outputPath_;
    }

    bool cancelled() const { return options_.cancelled != nullptr && *options_.cancelled; }

    Failure open() {
        source_ = openSource(sourcePath_);
        return source_.failure;
    }

    Failure readHeaders() {
        if (source_.size == 0) {
            return conversionFailure(ConversionFailure::noFrames);
        }
        facts_ = factsOf(FileBytes(source_.file.get(), source_.size));
        if (!facts_.unsupported.empty()) {
            return conversionFailure(ConversionFailure::unsupported, facts_.unsupported);
        }
        if (facts_.truncated) {
            return conversionFailure(ConversionFailure::truncatedOrCorrupt);
        }
        if (facts_.frames == 0U || (facts_.sound && facts_.sound->length == 0)) {
            return conversionFailure(ConversionFailure::noFrames);
        }
        return std::nullopt;
    }

    Failure probe() {
        std::string text;
        const ChildEnd end = runChild(probeArguments(), [&](std::span<const std::uint8_t> bytes) {
            text.append(bytes.begin(), bytes.end());
            return text.size() <= mostProbeText;
        });
        const auto otherwise =
            facts_.recognised ? ConversionFailure::truncatedOrCorrupt : ConversionFailure::notAudio;
        const auto stream = end.succeeded() ? parseProbe(text) : std::nullopt;
        if (!stream) {
            return childFailure(end, options_.ffmpeg, otherwise);
        }
        stream_ = *stream;
        if (!facts_.codec.empty()) {
            stream_.codec = facts_.codec;
        }
        if (!isAcceptedCodec(stream_.codec)) {
            return conversionFailure(ConversionFailure::unsupported, stream_.codec);
        }
        if (stream_.rate < lowestRate || stream_.rate > highestRate) {
            return conversionFailure(ConversionFailure::sampleRate, std::to_string(stream_.rate));
        }
        return std::nullopt;
    }

    Failure openOutput() {
        const int error = output_.open();
        return error == 0 ? Failure() : outputFailure(error);
    }

    Failure decode() {
        int error = 0;
        const auto arguments = decodeArguments(facts_, stream_, Conversion::mostFrames);
        const ChildEnd end = runChild(arguments, [&](std::span<const std::uint8_t> bytes) {
            if (output_.sampleBytes() + bytes.size() > Conversion::mostFrames * frameBytes) {
                return false;
            }
            error = output_.write(bytes);
            if (error == 0 && options_.progress) {
                options_.progress(frames());
            }
            return error == 0;
        });
        if (error != 0) {
            return outputFailure(error);
        }
        return end.succeeded() ? Failure()
                               : childFailure(end, options_.ffmpeg, ConversionFailure::truncatedOrCorrupt);
    }

    /// A decoder takes an early end of the file for the end of the audio, unless it is in the middle of a
    /// frame.
    Failure checkLength() {
        if (output_.sampleBytes() == 0) {
            return conversionFailure(ConversionFailure::noFrames);
        }
        std::optional<std::uint64_t> due = facts_.frames;
        if (const auto span = framesOfSound(facts_, stream_.rate)) {
            due = span->end - span->start;
        }
        const std::uint64_t least = due ? std::min(resampled(*due, stream_.rate), Conversion::mostFrames) : 0;
        if (output_.sampleBytes() % frameBytes != 0 || frames() + 1 < least) {
            return conversionFailure(ConversionFailure::truncatedOrCorrupt);
        }
        return std::nullopt;
    }

    Failure finish() {
        const int error = output_.finish(options_.sync);
        return error == 0 ? Failure() : outputFailure(error);
    }

    ChildEnd runChild(std::vector<std::string> arguments,
                      std::function<bool(std::span<const std::uint8_t>)> output) {
        ChildEnd end = runLockedChild({.program = options_.ffmpeg,
                                       .arguments = std::move(arguments),
                                       .source = source_.file.get(),
                                       .output = std::move(output),
                                       .cancelled = options_.cancelled,
                                       .patience = options_.patience});
        complaint_ = end.complaint;
        return end;
    }

    const Conversion::Options& options_;
    const std::filesystem::path& sourcePath_;
    std::filesystem::path outputPath_;
    WaveOutput output_;
    SourceFile source_;
    SourceFacts facts_;
    StreamFacts stream_;
    std::string complaint_;
};

}  // namespace

Conversion::Result Conversion::convert(const std::filesystem::path& source) const {
    Run run(options_, source);
    if (auto failure = run.all()) {
        log(LogCategory::audio,
            asLogLine(source.string() + ": " + failure->sentence + " [" + run.complaint() + "]"));
        return {std::move(failure), {}, 0};
    }
    return {std::nullopt, run.outputPath(), run.frames()};
}

}  // namespace kzq
