#include "audio/conversion.h"

#include <algorithm>
#include <optional>
#include <system_error>
#include <utility>

#include "audio/conversion_troubles.h"
#include "audio/decoder_arguments.h"
#include "audio/source_facts.h"
#include "audio/wave.h"
#include "audio/wave_output.h"
#include "loops/facts.h"
#include "platform/log.h"
#include "platform/plain_file.h"
#include "platform/unique_name.h"

namespace kzq {
namespace {

using Kind = Trouble::Kind;

constexpr std::uint64_t lowestRate = 4'000;
constexpr std::uint64_t highestRate = 768'000;
constexpr std::size_t mostProbeText = 1 << 16;

std::uint64_t resampled(std::uint64_t frames, std::uint64_t rate) {
    return (frames * framesPerSecond + rate / 2) / rate;
}

std::string logWords(const Trouble& trouble) {
    return std::string(troubleName(trouble.kind)) + (trouble.words.empty() ? "" : ", " + trouble.words) +
           (trouble.error == 0 ? "" : ", " + std::generic_category().message(trouble.error));
}

/// One running conversion; a step after the other.
class Run {
  public:
    Run(const Conversion::Options& options, const std::filesystem::path& source)
        : options_(options), sourcePath_(source), outputPath_(options.output), output_(resolvedOutput()) {}

    Result<void> all() {
        using Step = Result<void> (Run::*)();
        for (const Step step : {&Run::open, &Run::readHeaders, &Run::probe, &Run::openOutput, &Run::decode,
                                &Run::checkLength, &Run::finish}) {
            if (cancelled()) {
                return Trouble{Kind::cancelled};
            }
            if (auto done = (this->*step)(); !done) {
                return done;
            }
        }
        return {};
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

    Result<void> open() {
        return openPlainFile(sourcePath_, Links::followed).and_then([this](PlainFile opened) -> Result<void> {
            source_ = std::move(opened);
            return {};
        });
    }

    Result<void> readHeaders() {
        if (source_.size == 0) {
            return Trouble{Kind::noSound};
        }
        facts_ = factsOf(FileBytes(source_.file.get(), source_.size));
        if (!facts_.unsupported.empty()) {
            return Trouble{Kind::unsupported, {}, 0, facts_.unsupported};
        }
        if (facts_.truncated) {
            return Trouble{Kind::damaged};
        }
        if (facts_.frames == 0U || (facts_.sound && facts_.sound->length == 0)) {
            return Trouble{Kind::noSound};
        }
        return {};
    }

    Result<void> probe() {
        std::string text;
        const ChildEnd end = runChild(probeArguments(), [&](std::span<const std::uint8_t> bytes) {
            text.append(bytes.begin(), bytes.end());
            return text.size() <= mostProbeText;
        });
        const auto otherwise = facts_.recognised ? Kind::damaged : Kind::notAudio;
        const auto stream = end.succeeded() ? parseProbe(text) : std::nullopt;
        if (!stream) {
            return childTrouble(end, options_.ffmpeg, otherwise);
        }
        stream_ = *stream;
        if (!facts_.codec.empty()) {
            stream_.codec = facts_.codec;
        }
        if (!isAcceptedCodec(stream_.codec)) {
            return Trouble{Kind::unsupported, {}, 0, stream_.codec};
        }
        if (stream_.rate < lowestRate || stream_.rate > highestRate) {
            return Trouble{Kind::sampleRate, {}, 0, std::to_string(stream_.rate)};
        }
        return {};
    }

    Result<void> openOutput() { return written(output_.open()); }

    Result<void> decode() {
        Result<void> done;
        const auto arguments = decodeArguments(facts_, stream_, Conversion::mostFrames);
        const ChildEnd end = runChild(arguments, [&](std::span<const std::uint8_t> bytes) {
            if (output_.sampleBytes() + bytes.size() > Conversion::mostFrames * frameBytes) {
                return false;
            }
            done = output_.write(bytes);
            if (done && options_.progress) {
                options_.progress(frames());
            }
            return done.has_value();
        });
        if (done && !end.succeeded()) {
            return childTrouble(end, options_.ffmpeg, Kind::damaged);
        }
        return written(std::move(done));
    }

    /// A decoder takes an early end of the file for the end of the audio, unless it is in the middle of a
    /// frame.
    Result<void> checkLength() {
        if (output_.sampleBytes() == 0) {
            return Trouble{Kind::noSound};
        }
        std::optional<std::uint64_t> due = facts_.frames;
        if (const auto span = framesOfSound(facts_, stream_.rate)) {
            due = span->end - span->start;
        }
        const std::uint64_t least = due ? std::min(resampled(*due, stream_.rate), Conversion::mostFrames) : 0;
        if (output_.sampleBytes() % frameBytes != 0 || frames() + 1 < least) {
            return Trouble{Kind::damaged};
        }
        return {};
    }

    Result<void> finish() { return written(output_.finish(options_.sync)); }

    static Result<void> written(Result<void> done) { return done.map_error(outputTrouble); }

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
    PlainFile source_;
    SourceFacts facts_;
    StreamFacts stream_;
    std::string complaint_;
};

}  // namespace

Result<Conversion::File> Conversion::convert(const std::filesystem::path& source) const {
    Run run(options_, source);
    if (auto done = run.all(); !done) {
        auto& trouble = done.error();
        trouble.where = source.string();
        log(LogCategory::audio, asLogLine(trouble.where + ": not converted: " + logWords(trouble) + " [" +
                                          run.complaint() + "]"));
        return std::move(trouble);
    }
    return File{run.outputPath(), run.frames()};
}

}  // namespace kzq
