// What the link adds to moving a loop: import and export against the bare loop of the same pieces with one
// copy, written here. Both take turns, so that they run under the same conditions; "x_bare" is the quotient
// of their times.
//   bench_transfers [Google Benchmark's options]

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "bare_pedal.h"
#include "platform/descriptor.h"
#include "platform/process.h"

namespace kzq::bench {
namespace {

using Clock = std::chrono::steady_clock;

std::size_t bytesOf(const benchmark::State& state) {
    return static_cast<std::size_t>(state.range(0)) * framesPerSecond * frameBytes;
}

/// `work` and `bare` in turn, each the first every second time.
template <class Work, class Bare>
void inTurn(benchmark::State& state, const Work& work, const Bare& bare) {
    std::array<Clock::duration, 2> spent{};
    const auto timed = [&](bool worked) {
        const auto start = Clock::now();
        const bool done = worked ? work() : bare();
        const auto took = Clock::now() - start;
        spent.at(worked ? 1 : 0) += took;
        if (!done) {
            state.SkipWithError("it failed");
        }
        return took;
    };
    bool first = false;
    for (auto _ : state) {
        const auto one = timed(first);
        const auto other = timed(!first);
        state.SetIterationTime(std::chrono::duration<double>(first ? one : other).count());
        first = !first;
    }
    state.counters["x_bare"] =
        static_cast<double>(spent[1].count()) / static_cast<double>(std::max<long>(spent[0].count(), 1));
}

bool bareImport(std::size_t size) {
    const std::unique_ptr<std::uint8_t[]> file(new std::uint8_t[waveHeaderSize + size]);
    for (std::size_t came = 0; came < size; came += transferPiece) {
        const auto length = std::min(size - came, transferPiece);
        copyPiece({file.get() + waveHeaderSize + came, length}, came);
    }
    const auto header = waveHeader(static_cast<std::uint32_t>(size), 2);
    std::ranges::copy(header, file.get());
    benchmark::DoNotOptimize(file.get());
    benchmark::ClobberMemory();
    return true;
}

void benchImport(benchmark::State& state) {
    auto& link = BareLink::get();
    const auto size = bytesOf(state);
    link.pedal.frames = static_cast<std::uint32_t>(size / frameBytes);
    inTurn(
        state, [&] { return link.looper->importLoop(1, [](auto, auto) {}).has_value(); },
        [&] { return bareImport(size); });
}

bool bareExport(const std::filesystem::path& path) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    const auto size = std::filesystem::file_size(path);
    const std::unique_ptr<std::uint8_t[]> bytes(new std::uint8_t[size]);
    for (std::size_t got = 0; got < size;) {
        const auto count = ::read(file.get(), bytes.get() + got, size - got);
        if (count <= 0) {
            return false;
        }
        got += static_cast<std::size_t>(count);
    }
    std::array<std::uint8_t, transferPiece> sink{};
    for (std::size_t sent = waveHeaderSize; sent < size; sent += transferPiece) {
        std::memcpy(sink.data(), bytes.get() + sent, std::min(size - sent, transferPiece));
        benchmark::DoNotOptimize(sink.data());
        benchmark::ClobberMemory();
    }
    return true;
}

void benchExport(benchmark::State& state) {
    auto& link = BareLink::get();
    const auto size = bytesOf(state);
    const auto path = std::filesystem::temp_directory_path() / ("bench-" + std::to_string(::getpid()));
    {
        std::ofstream file(path, std::ios::binary);
        const auto header = waveHeader(static_cast<std::uint32_t>(size), 2);
        file.write(reinterpret_cast<const char*>(header.data()), header.size());
        for (std::size_t done = 0; done < size; done += pattern().size()) {
            const auto length = std::min(size - done, pattern().size());
            file.write(reinterpret_cast<const char*>(pattern().data()), static_cast<long>(length));
        }
    }
    const ExportInfo info{.source = path, .destination = 2, .occupied = false, .bytes = size};
    inTurn(
        state, [&] { return link.looper->exportLoop(info, [](auto, auto) {}) == size; },
        [&] { return bareExport(path); });
    std::filesystem::remove(path);
}

/// Of audio.
const std::vector<std::int64_t> seconds{1, 2, 10, 30, 120, 480, 1440};

BENCHMARK(benchImport)->ArgsProduct({seconds})->UseManualTime();
BENCHMARK(benchExport)->ArgsProduct({seconds})->UseManualTime();

}  // namespace
}  // namespace kzq::bench

int main(int argc, char** argv) {
    kzq::returnFreedLoops();  // as the programs do
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    std::cout.flush();
    std::_Exit(EXIT_SUCCESS);  // the link's threads go on
}
