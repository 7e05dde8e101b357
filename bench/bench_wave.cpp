// The WAV functions compared with a plain memcpy of the same bytes in the same run. Both walk fresh memory
// once, so the counter "x_memcpy" (time divided by memcpy's) should stay near 1 for functions that copy.

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstring>
#include <memory>

#include "audio/wave.h"

namespace {

using Clock = std::chrono::steady_clock;

/// Bytes of a loop: a typical phrase, and a large share of the pedal's memory.
constexpr std::int64_t tenSeconds = 2'646'000;
constexpr std::int64_t tenMinutes = 60 * tenSeconds;

kzq::Bytes samplesOf(std::int64_t size) {
    kzq::Bytes samples(static_cast<std::size_t>(size));
    std::uint32_t noise = 1;
    for (auto& byte : samples) {
        byte = static_cast<std::uint8_t>((noise = noise * 1664525U + 1013904223U) >> 24U);
    }
    return samples;
}

template <typename Work>
Clock::duration timed(const Work& work) {
    const auto start = Clock::now();
    work();
    return Clock::now() - start;
}

/// Copies `bytes` as cheaply as new memory allows: not even cleared first.
void bareCopy(kzq::ByteView bytes) {
    const std::unique_ptr<std::uint8_t[]> copy(new std::uint8_t[bytes.size()]);
    std::memcpy(copy.get(), bytes.data(), bytes.size());
    benchmark::DoNotOptimize(copy.get());
    benchmark::ClobberMemory();
}

/// Times `work` and the plain copy of `bytes` in turn, so that both run under the same conditions.
template <typename Work>
void againstMemcpy(benchmark::State& state, kzq::ByteView bytes, const Work& work) {
    Clock::duration worked{};
    Clock::duration copied{};
    for (auto _ : state) {
        copied += timed([&] { bareCopy(bytes); });
        const auto once = timed(work);
        worked += once;
        state.SetIterationTime(std::chrono::duration<double>(once).count());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
    state.counters["x_memcpy"] = static_cast<double>(worked.count()) / static_cast<double>(copied.count());
}

void benchWave(benchmark::State& state) {
    const kzq::Bytes samples = samplesOf(state.range(0));
    againstMemcpy(state, samples, [&] { benchmark::DoNotOptimize(kzq::wave(samples, 2)); });
}

void benchLpcm(benchmark::State& state) {
    const auto file = kzq::wave(samplesOf(state.range(0)), 2);
    if (!file) {
        return state.SkipWithError("no memory");
    }
    againstMemcpy(state, *file, [&] { benchmark::DoNotOptimize(kzq::lpcm(*file)); });
}

void benchIsWave(benchmark::State& state) {
    const auto file = kzq::wave(samplesOf(state.range(0)), 2);
    if (!file) {
        return state.SkipWithError("no memory");
    }
    againstMemcpy(state, *file, [&] { benchmark::DoNotOptimize(kzq::isWave(*file)); });
}

BENCHMARK(benchWave)->Arg(tenSeconds)->Arg(tenMinutes)->UseManualTime();
BENCHMARK(benchLpcm)->Arg(tenSeconds)->Arg(tenMinutes)->UseManualTime();
BENCHMARK(benchIsWave)->Arg(tenSeconds)->UseManualTime()->Iterations(200);

}  // namespace

BENCHMARK_MAIN();
