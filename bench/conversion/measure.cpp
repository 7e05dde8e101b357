// Measures the conversion and prints the tables of doc/conversion.md. Run by bench/conversion/run.

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>

#include "audio/conversion.h"
#include "cases.h"
#include "loops/facts.h"
#include "operations/sentences.h"
#include "platform/log.h"
#include "sound_analysis.h"

namespace kzq {
namespace {

/// A sine that only moves the last of 24 bits; anything lower is lost to rounding.
constexpr double lastBit = -138;

Result<Conversion::File> convert(const Workshop& shop, const std::filesystem::path& source) {
    return Conversion({.output = shop.results()}).convert(source);
}

/// How many frames `samples` come late, as far as `expected` shows.
long lagOf(const Samples& samples, const Samples& expected) {
    constexpr long farthest = 3'000;
    constexpr long window = 4'096;
    const long from = static_cast<long>(std::min(samples.size(), expected.size())) / 4;
    double least = -1;
    long best = 0;
    for (long lag = -farthest; lag <= farthest && from > farthest + window; ++lag) {
        double sum = 0;
        for (long i = from; i < from + window; ++i) {
            const double difference = samples[static_cast<std::size_t>(2 * (i + lag))] -
                                      static_cast<double>(expected[static_cast<std::size_t>(2 * i)]);
            sum += difference * difference;
        }
        if (least < 0 || sum < least) {
            least = sum;
            best = lag;
        }
    }
    return best;
}

/// In decibels, to two places; never "-0.00".
double decibels(double ratio) {
    return std::round(2000 * std::log10(ratio)) / 100 + 0.0;
}

double peakOf(const Samples& samples) {
    std::int64_t peak = 0;
    for (const std::int32_t sample : samples) {
        peak = std::max(peak, std::abs(std::int64_t{sample}));
    }
    return decibels(static_cast<double>(peak) / fullScale);
}

std::string verdictText(const Conversion::File& file) {
    std::string text = verdictName(file.verdict);
    if (file.flaw) {
        text += file.flaw->words.empty() ? "" : " by " + file.flaw->words + " ms";
    }
    return text + (file.silenced ? ", silenced" : "");
}

/// A result's samples; the file is removed at once.
Samples taken(const Conversion::File& result) {
    Samples samples = samplesOf(result.path);
    std::filesystem::remove(result.path);
    return samples;
}

Samples convertedTone(const Workshop& shop, std::uint32_t rate, std::size_t frames, double frequency) {
    const auto result = convert(shop, shop.write("tone.wav", fineTone(frames, frequency, rate, 0.9)));
    if (!result) {
        std::fprintf(stderr, "%u Hz: %s\n", rate, audioSentence(result.error()).c_str());
        return {};
    }
    return taken(*result);
}

void printKinds(const Workshop& shop) {
    std::puts(
        "| input | verdict | frames in | frames out | lag | largest difference | difference, dB | peak, dB | "
        "gain, dB |");
    std::puts("|---|---|---:|---:|---:|---:|---:|---:|---:|");
    for (const auto& one : measuredCases(shop)) {
        const auto result = Conversion({.output = shop.results(), .salvage = one.salvage, .everyKind = true})
                                .convert(one.source);
        if (!result) {
            std::printf("| %s | refused: %s | | | | | | | |\n", one.kind.c_str(),
                        audioSentence(result.error()).c_str());
            continue;
        }
        const Samples samples = taken(*result);
        std::printf("| %s | %s | %zu | %zu |", one.kind.c_str(), verdictText(*result).c_str(), one.frames,
                    samples.size() / 2);
        if (one.expected.empty()) {
            std::printf(" | | |");
        } else if (const auto difference = largestDifference(samples, one.expected); difference == 0) {
            std::printf(" 0 | 0 | none |");
        } else {
            std::printf(" %ld | %ld | %.1f |", lagOf(samples, one.expected), static_cast<long>(difference),
                        differenceLevel(samples, one.expected));
        }
        std::printf(" %.2f |", peakOf(samples));
        std::printf(result->gain == 1 ? " |\n" : " %+.2f |\n", decibels(result->gain));
    }
}

void printRates(const Workshop& shop) {
    std::puts(
        "| rate | frames in | frames out | due | THD+N at 997 Hz, dB | THD+N at 10 kHz, dB | level change at "
        "20 kHz, dB |");
    std::puts("|---:|---:|---:|---:|---:|---:|---:|");
    for (const std::uint32_t rate : {8'000U, 11'025U, 16'000U, 22'050U, 32'000U, 44'100U, 48'000U, 88'200U,
                                     96'000U, 176'400U, 192'000U}) {
        const std::size_t frames = 4UL * rate + 7;
        const Samples low = convertedTone(shop, rate, frames, 997);
        std::printf("| %u | %zu | %zu | %zu | %.1f |", rate, frames, low.size() / 2,
                    (frames * framesPerSecond + rate / 2) / rate, residueBelowTone(low, 997));
        if (rate > 22'050) {
            std::printf(" %.1f |", residueBelowTone(convertedTone(shop, rate, frames, 10'000), 10'000));
        } else {
            std::printf(" |");
        }
        if (rate > 40'000) {
            const double before = 20 * std::log10(0.9);
            std::printf(" %+.4f |", level(convertedTone(shop, rate, frames, 20'000)) - before);
        } else {
            std::printf(" |");
        }
        std::puts("");
    }
}

void printAliases(const Workshop& shop) {
    std::puts("| rate | tone | where it would fold to | what is left of it, dB of full scale |");
    std::puts("|---:|---:|---:|---:|");
    for (const std::uint32_t rate : {48'000U, 96'000U, 192'000U}) {
        for (const double frequency : {22'500.0, 23'500.0, 30'000.0, 40'000.0}) {
            if (frequency < rate / 2.0) {
                const double left = level(convertedTone(shop, rate, 2UL * rate, frequency));
                std::printf("| %u | %.0f | %.0f | %s%.0f |\n", rate, frequency,
                            std::abs(frequency - framesPerSecond), left < lastBit ? "under " : "",
                            std::max(left, lastBit));
            }
        }
    }
}

void printSpeed(const Workshop& shop) {
    std::puts("| source | frames out | seconds | ffmpeg alone, seconds |");
    std::puts("|---|---:|---:|---:|");
    const std::vector<std::pair<std::string, std::string>> sources{
        {"24 minutes of WAV, 44,100 Hz, 24 bits",
         "-f lavfi -i anoisesrc=r=44100:d=1440:a=0.5 -ac 2 -c:a pcm_s24le a.wav"},
        {"24 minutes of WAV, 96,000 Hz, 24 bits",
         "-f lavfi -i anoisesrc=r=96000:d=1440:a=0.5 -ac 2 -c:a pcm_s24le b.wav"},
        {"24 minutes of MP3, 48,000 Hz", "-f lavfi -i anoisesrc=r=48000:d=1440:a=0.5 -ac 2 -b:a 192k c.mp3"},
        {"100 hours of silence in a FLAC, 4,000 Hz", "-f lavfi -i anullsrc=r=4000:cl=mono -t 360000 d.flac"}};
    for (const auto& [kind, command] : sources) {
        const auto split = command.rfind(' ');
        const auto source = shop.encode(command.substr(split + 1), command.substr(0, split));
        const auto before = std::chrono::steady_clock::now();
        const auto result = convert(shop, source);
        const auto between = std::chrono::steady_clock::now();
        shop.encode("alone.wav", "-threads 1 -i " + source.string() +
                                     " -t 1440 -af aresample=44100:resampler=soxr:precision=28:cheby=1 -ac 2 "
                                     "-c:a pcm_s24le -f wav");
        const std::chrono::duration<double> took = between - before;
        const std::chrono::duration<double> alone = std::chrono::steady_clock::now() - between;
        std::filesystem::remove(shop.at("alone.wav"));
        std::printf("| %s | %zu | %.1f | %.1f |\n", kind.c_str(),
                    static_cast<std::size_t>(result ? result->frames : 0), took.count(), alone.count());
        std::filesystem::remove(source);
        if (result) {
            std::filesystem::remove(result->path);
        }
    }
}

}  // namespace
}  // namespace kzq

int main() {
    const kzq::Workshop shop;
    kzq::setLogSink([](kzq::LogCategory, std::string_view) {});
    std::puts("### Kinds\n");
    kzq::printKinds(shop);
    std::puts("\n### Rates\n");
    kzq::printRates(shop);
    std::puts("\n### Tones above 22,050 Hz\n");
    kzq::printAliases(shop);
    std::puts("\n### Time\n");
    kzq::printSpeed(shop);
    return 0;
}
