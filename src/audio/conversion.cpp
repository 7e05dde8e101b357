#include "audio/conversion.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <system_error>
#include <utility>

#include "audio/conversion_troubles.h"
#include "audio/decoder_arguments.h"
#include "audio/level.h"
#include "audio/source_digest.h"
#include "audio/source_facts.h"
#include "audio/true_peak.h"
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
        for (const Step step : {&Run::open, &Run::readHeaders, &Run::awaitTurn, &Run::decode, &Run::clean,
                                &Run::checkLength, &Run::level, &Run::finish}) {
            if (cancelled()) {
                return Trouble{Kind::cancelled};
            }
            if (auto done = (this->*step)(); !done) {
                return done;
            }
        }
        return {};
    }

    Conversion::File file() const {
        return {outputPath_, frames(), judgement_.verdict, judgement_.flaw, gain_, silenced_};
    }
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

    std::uint64_t frames() const { return output_.sampleBytes() / frameBytes; }
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
        const FileBytes bytes(source_.file.get(), source_.size, options_.cancelled);
        facts_ = factsOf(bytes);
        if (bytes.exhausted()) {
            return Trouble{Kind::limits};
        }
        if (!options_.everyKind && !facts_.kind.empty()) {
            facts_.unsupported = facts_.kind;
        }
        if (!facts_.unsupported.empty()) {
            return Trouble{Kind::unsupported, {}, 0, facts_.unsupported};
        }
        if (facts_.frames == 0U || (facts_.sound && facts_.sound->length == 0)) {
            return Trouble{Kind::noSound};
        }
        return {};
    }

    Result<void> awaitTurn() {
        turn_ = options_.turns->take(options_.cancelled);
        return turn_ ? Result<void>() : Trouble{Kind::cancelled};
    }

    Result<void> decode() {
        const auto start = std::chrono::steady_clock::now();
        if (decodedSwiftly()) {
            return {};
        }
        if (cancelled()) {
            return Trouble{Kind::cancelled};
        }
        spent_ =
            std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start);
        auto done = probe().and_then([this] { return checkHeaders(); }).and_then([this] {
            return decodeCarefully();
        });
        spent_ = {};
        return done;
    }

    /// Whether one child was enough, as it is for most files: it saw what the headers say, and nothing went
    /// wrong. It writes the file itself if its samples are the pedal's. What it did not do without fault is
    /// done again, step by step, which shows why.
    bool decodedSwiftly() {
        if (!facts_.stream || facts_.truncated) {
            return false;
        }
        stream_ = *facts_.stream;
        if (!accepted()) {
            return false;
        }
        plan();
        order_.describe = true;
        const auto done = order_.samples == SampleKind::s24 ? passByChild() : pass();
        order_.describe = false;
        const auto seen = parseProbe(complaint_);
        const bool asSaid = seen && seen->codec == stream_.codec && seen->rate == stream_.rate &&
                            seen->channels == stream_.channels;
        // a decoder that could not write its last bytes says so, but ends as if it could
        const bool written = !decoded_.complained && output_.sampleBytes() % frameBytes == 0;
        const bool swift = done && faultless_ && asSaid && written;
        silenced_ = silenced_ && swift;
        return swift;
    }

    Result<void> probe() {
        std::string text;
        const ChildEnd end = runChild({.arguments = probeArguments(facts_), .output = [&](ByteView bytes) {
                                           text.append(bytes.begin(), bytes.end());
                                           return text.size() <= mostProbeText;
                                       }});
        const auto otherwise = facts_.recognised ? Kind::damaged : Kind::notAudio;
        const auto stream = end.succeeded() ? parseProbe(text) : std::nullopt;
        if (!stream) {
            return childTrouble(end, options_.ffmpeg, otherwise);
        }
        stream_ = *stream;
        if (!facts_.codec.empty()) {
            stream_.codec = facts_.codec;
        }
        return accepted();
    }

    Result<void> accepted() const {
        if (!isAcceptedCodec(facts_, stream_.codec)) {
            return Trouble{Kind::unsupported, {}, 0, stream_.codec};
        }
        if (stream_.rate < lowestRate || stream_.rate > highestRate) {
            return Trouble{Kind::sampleRate, {}, 0, std::to_string(stream_.rate)};
        }
        return {};
    }

    /// What is bound to be shortened need not be decoded to be refused.
    Result<void> checkHeaders() {
        auto flaw = flawIn(facts_, stream_.rate);
        if (flaw && !options_.salvage) {
            return std::move(*flaw);
        }
        plan();
        return {};
    }

    void plan() {
        order_.samples = options_.normalize ? SampleKind::f64 : samplesFor(stream_);
        // What is open-ended may end in a packet that counts as corrupt.
        order_.strict = !facts_.openEnded && !facts_.countDecides && !facts_.truncated;
        order_.digest = facts_.digest && resampled(*facts_.frames, stream_.rate) <= Conversion::mostFrames;
    }

    Result<void> decodeCarefully() {
        auto done = pass();
        const bool gaveUp =
            !done && (done.error().kind == Kind::broken || done.error().kind == Kind::damaged);
        if (gaveUp && options_.salvage) {
            decoded_.stumbled = true;
            order_.strict = false;
            done = pass();
        }
        return done;
    }

    Result<void> clean() {
        if (!silenced_ || stream_.rate == framesPerSecond) {
            return {};
        }
        order_.clean = true;
        return pass();
    }

    Result<void> checkLength() {
        if (frames() == 0) {
            return Trouble{Kind::noSound};
        }
        decoded_.frames = frames();
        judgement_ = judge(facts_, stream_.rate, decoded_);
        if (judgement_.flaw && !options_.salvage) {
            return *judgement_.flaw;
        }
        return {};
    }

    /// Decodes once more if the level must change: it is known only at the end. What will not fit the pedal
    /// does not need it.
    Result<void> level() {
        constexpr double highestTruePeak = 0.891250938;  // -1 dB
        if (frames() == Conversion::mostFrames) {
            return {};
        }
        if (options_.normalize && truePeak_ > 0) {
            gain_ = highestTruePeak / truePeak_;
        } else if (saferGain_) {
            gain_ = *saferGain_;
        }
        return gain_ == 1 ? Result<void>() : pass();
    }

    /// Decodes the source from its start into a new output. Of kind `broken` if the decoder gave up in the
    /// middle.
    Result<void> pass() {
        if (auto opened = written(output_.open()); !opened) {
            return opened;
        }
        Level level(order_.samples, gain_);
        std::optional<TruePeak> truePeak;
        if (options_.normalize && gain_ == 1) {
            truePeak.emplace();
        }
        Result<void> done;
        const auto output = [&](ByteView bytes) {
            done = take(level.take(bytes));
            if (truePeak) {
                truePeak->add(level.samples());
            }
            return done.has_value();
        };
        const ChildEnd end =
            runChild({.arguments = decodeArguments(facts_, stream_, order_), .output = output});
        silenced_ = silenced_ || level.silenced();
        saferGain_ = level.isTooLoud() ? std::optional(level.saferGain()) : std::nullopt;
        truePeak_ = truePeak ? truePeak->peak() : truePeak_;
        decoded_.md5 = parseDigest(end.complaint);
        note(end);
        const bool wentOn = !order_.strict && end.how == ChildEnd::How::exited && frames() > 0;
        if (done && !end.succeeded() && !wentOn) {
            return childTrouble(end, options_.ffmpeg, frames() > 0 ? Kind::broken : Kind::damaged);
        }
        return written(std::move(done));
    }

    /// The same for samples that are the pedal's: the child writes them into the file. The digest is made
    /// here meanwhile, from what is in the file.
    Result<void> passByChild() {
        const auto sink = output_.open().and_then([this] { return output_.handOver(); });
        if (!sink) {
            return sink.error();
        }
        std::optional<SourceDigest> digest;
        if (order_.digest) {
            auto reader = output_.reader();
            if (!reader) {
                return reader.error();
            }
            digest.emplace(facts_.digest->bits, stream_.channels, std::move(*reader));
        }
        Result<void> done;
        const auto grown = [&](std::uint64_t size) {
            output_.grownTo(size);
            goneOn();
            done = digest ? digest->follow(output_.sampleBytes()) : Result<void>();
            return done.has_value();
        };
        DecodeOrder order = order_;
        order.digest = false;
        const ChildEnd end = runChild({.arguments = decodeArguments(facts_, stream_, order),
                                       .sink = sink->get(),
                                       .sinkLimit = waveHeaderSize + Conversion::mostFrames * frameBytes,
                                       .grown = grown});
        decoded_.md5 = digest ? digest->text() : "";
        note(end);
        return done;
    }

    void note(const ChildEnd& end) {
        decoded_.complained = end.complaint.find("rror") != std::string::npos;
        faultless_ = end.succeeded();
    }

    Result<void> take(ByteView samples) {
        if (output_.sampleBytes() + samples.size() > Conversion::mostFrames * frameBytes) {
            return Trouble{Kind::damaged};  // the decoder does not do what it was asked for
        }
        auto done = output_.write(samples);
        if (done) {
            goneOn();
        }
        return done;
    }

    void goneOn() {
        if (options_.sync) {
            output_.hasten();
        }
        if (options_.progress && frames() > reported_) {
            reported_ = frames();
            options_.progress(reported_);
        }
    }

    Result<void> finish() {
        turn_.reset();  // the disk may take its time
        return written(output_.finish(options_.sync));
    }

    static Result<void> written(Result<void> done) {
        return done || done.error().kind != Kind::file ? std::move(done) : done.map_error(outputTrouble);
    }

    ChildEnd runChild(ChildTask task) {
        task.program = options_.ffmpeg;
        task.source = source_.file.get();
        task.cancelled = options_.cancelled;
        task.patience = options_.patience;
        task.patience.whole -= spent_;
        ChildEnd end = runLockedChild(task);
        complaint_ = end.complaint;
        return end;
    }

    const Conversion::Options& options_;
    const std::filesystem::path& sourcePath_;
    std::filesystem::path outputPath_;
    WaveOutput output_;
    PlainFile source_;
    DecoderTurns::Turn turn_;
    SourceFacts facts_;
    StreamFacts stream_;
    DecodeOrder order_;
    Decoded decoded_;
    Judgement judgement_;
    std::string complaint_;
    std::uint64_t reported_ = 0;
    std::optional<double> saferGain_;
    double truePeak_ = 0;
    double gain_ = 1;
    bool silenced_ = false;
    std::chrono::milliseconds spent_{};  ///< of the patience, by a first try
    bool faultless_ = false;             ///< the last decoder
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
    return run.file();
}

}  // namespace kzq
