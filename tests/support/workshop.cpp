#include "workshop.h"

#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

#include "platform/little_endian.h"

namespace kzq {

namespace fs = std::filesystem;

Workshop::Workshop() {
    fs::create_directory(results_);
}

fs::path Workshop::write(const std::string& name, std::span<const std::uint8_t> bytes) const {
    std::ofstream(at(name), std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return at(name);
}

fs::path Workshop::make(const std::string& name, const std::string& command) const {
    const std::string line = "cd '" + folder_.path().string() + "' && { " + command + "; } </dev/null";
    // NOLINTNEXTLINE(cert-env33-c,concurrency-mt-unsafe): a test's own commands, one at a time
    if (std::system(line.c_str()) != 0 || !fs::exists(at(name))) {
        throw std::runtime_error("could not make " + name + ": " + command);
    }
    return at(name);
}

fs::path Workshop::encode(const std::string& name, const std::string& arguments) const {
    return make(name, "ffmpeg -nostdin -v error -y " + arguments + " '" + name + "'");
}

std::size_t Workshop::resultCount() const {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(results_), {}));
}

Bytes readFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

Samples noise(std::size_t frames, unsigned bits, unsigned channels) {
    std::mt19937 generator(7306);
    Samples samples(frames * channels);
    for (auto& sample : samples) {
        sample = static_cast<std::int32_t>(generator()) >> (32U - bits) << (24U - bits);
    }
    return samples;
}

Samples sine(std::size_t frames, double frequency, double rate, double amplitude, unsigned channels) {
    Samples samples;
    samples.reserve(frames * channels);
    for (std::size_t i = 0; i < frames; ++i) {
        const double phase = 2 * M_PI * frequency / rate * static_cast<double>(i);
        const auto value =
            static_cast<std::int32_t>(std::lround(std::sin(phase) * amplitude * (fullScale - 1)));
        samples.insert(samples.end(), channels, value);
    }
    return samples;
}

Bytes packed(const Samples& samples) {
    Bytes bytes;
    bytes.reserve(samples.size() * 3);
    for (const std::int32_t sample : samples) {
        const auto bits = static_cast<std::uint32_t>(sample);
        for (const unsigned shift : {0U, 8U, 16U}) {
            bytes.push_back(static_cast<std::uint8_t>(bits >> shift & 0xFFU));
        }
    }
    return bytes;
}

Samples samplesOf(const fs::path& wave) {
    const Bytes bytes = readFile(wave);
    if (!isPerfectWave(bytes, 2) || loadU32(bytes, 36) != 0x61746164) {
        throw std::runtime_error(wave.string() + " is not in the pedal's format");
    }
    Samples samples;
    samples.reserve(bytes.size() / 3);
    for (std::size_t at = waveHeaderSize; at < bytes.size(); at += 3) {
        const std::uint32_t bits = (loadU16(bytes, at) | static_cast<std::uint32_t>(bytes[at + 2]) << 16U)
                                   << 8U;
        samples.push_back(static_cast<std::int32_t>(bits) >> 8);
    }
    return samples;
}

Bytes waveOf(const Samples& samples, std::uint32_t rate, std::uint16_t channels) {
    Bytes file = wave(packed(samples), channels).value();
    storeU32(file, 24, rate);
    storeU32(file, 28, rate * channels * 3);
    return file;
}

std::int64_t largestDifference(const Samples& one, const Samples& other) {
    std::int64_t largest = 0;
    for (std::size_t i = 0; i < std::min(one.size(), other.size()); ++i) {
        largest = std::max(largest, std::abs(std::int64_t{one[i]} - other[i]));
    }
    return largest;
}

}  // namespace kzq
