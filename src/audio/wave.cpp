#include "audio/wave.h"

#include <algorithm>
#include <new>

#include "loops/facts.h"
#include "platform/little_endian.h"

namespace kzq {
namespace {

constexpr std::uint32_t riffTag = 0x46464952;  // "RIFF"
constexpr std::uint32_t waveTag = 0x45564157;  // "WAVE"
constexpr std::uint32_t fmtTag = 0x20746D66;   // "fmt "
constexpr std::uint32_t dataTag = 0x61746164;  // "data"

constexpr std::uint64_t preambleSize = 12;
constexpr std::uint64_t chunkHeadSize = 8;
constexpr std::uint32_t fmtBodySize = 16;
constexpr std::uint16_t pcmTag = 1;
/// What the RIFF size of a canonical file includes besides the samples.
constexpr std::uint32_t riffOverhead = waveHeaderSize - chunkHeadSize;
constexpr std::uint64_t mostSampleBytes = 4'294'967'258;
/// Room after the samples, so that appending never moves them.
constexpr std::size_t spareCapacity = 100;

constexpr std::uint32_t byteRate(std::uint32_t channels) {
    return (channels * (framesPerSecond * waveBitsPerSample)) >> 3U;
}

constexpr std::uint16_t blockAlign(std::uint32_t channels) {
    return static_cast<std::uint16_t>((channels * waveBitsPerSample) >> 3U);
}

std::uint32_t tagOf(ByteView data, const ByteRange& chunk) {
    return loadU32(data, chunk.location);
}

ByteRange subchunkAfter(ByteView data, const ByteRange& chunk) {
    return rangeOfSubchunkAtOffset(data, chunk.location + chunk.length);
}

ByteRange firstSubchunk(ByteView data) {
    const ByteRange preamble = rangeOfWaveChunk(data);
    return preamble.length == 0 ? ByteRange{} : subchunkAfter(data, preamble);
}

/// Whether the "fmt " chunk at `chunk` describes the pedal's format with `channels` channels.
bool isPerfectFormat(ByteView data, const ByteRange& chunk, std::uint32_t channels) {
    if (chunk.length != chunkHeadSize + fmtBodySize) {
        return false;
    }
    const ByteView body = data.subspan(chunk.location + chunkHeadSize, fmtBodySize);
    return loadU16(body, 0) == pcmTag && loadU16(body, 2) == channels &&
           loadU32(body, 4) == framesPerSecond && loadU16(body, 14) == waveBitsPerSample &&
           loadU32(body, 8) == byteRate(channels) && loadU16(body, 12) == blockAlign(channels);
}

}  // namespace

ByteRange rangeOfWaveChunk(ByteView data) {
    if (data.size() < preambleSize) {
        return {};
    }
    if (loadU32(data, 0) != riffTag || loadU32(data, 8) != waveTag) {
        return {};
    }
    if (data.size() != loadU32(data, 4) + chunkHeadSize) {
        return {};
    }
    return {0, preambleSize};
}

ByteRange rangeOfSubchunkAtOffset(ByteView data, std::uint64_t offset) {
    if (!holdsField(data.size(), offset, chunkHeadSize)) {
        return {};
    }
    const bool printable =
        std::ranges::all_of(data.subspan(offset, 4), [](auto byte) { return byte >= 0x20 && byte <= 0x7E; });
    if (!printable) {
        return {};
    }
    const std::uint64_t length = loadU32(data, offset + 4) + chunkHeadSize;
    if (!holdsField(data.size(), offset, length)) {
        return {};
    }
    return {offset, length};
}

bool isWave(ByteView data) {
    bool fmtSeen = false;
    bool dataSeen = false;
    for (auto chunk = firstSubchunk(data); chunk.length != 0; chunk = subchunkAfter(data, chunk)) {
        const std::uint32_t tag = tagOf(data, chunk);
        fmtSeen = fmtSeen || tag == fmtTag;
        dataSeen = dataSeen || tag == dataTag;
        if (fmtSeen && dataSeen) {
            return true;
        }
    }
    return false;
}

bool isPerfectWave(ByteView data, std::uint32_t channels) {
    if (!isWave(data)) {
        return false;
    }
    bool fmtFound = false;
    bool dataFound = false;
    for (auto chunk = firstSubchunk(data); chunk.length != 0; chunk = subchunkAfter(data, chunk)) {
        const std::uint32_t tag = tagOf(data, chunk);
        if (tag == dataTag) {
            // With a second body before the format, it would be unclear which one counts.
            if (dataFound) {
                return false;
            }
            dataFound = true;
        } else if (tag == fmtTag) {
            if (fmtFound || !isPerfectFormat(data, chunk, channels)) {
                return false;
            }
            fmtFound = true;
        }
        if (fmtFound && dataFound) {
            return true;
        }
    }
    return false;
}

std::array<std::uint8_t, waveHeaderSize> waveHeader(std::uint32_t sampleBytes, std::uint32_t channels) {
    std::array<std::uint8_t, waveHeaderSize> header{};
    storeU32(header, 0, riffTag);
    storeU32(header, 4, sampleBytes + riffOverhead);
    storeU32(header, 8, waveTag);
    storeU32(header, 12, fmtTag);
    storeU32(header, 16, fmtBodySize);
    storeU16(header, 20, pcmTag);
    storeU16(header, 22, static_cast<std::uint16_t>(channels));
    storeU32(header, 24, framesPerSecond);
    storeU32(header, 28, byteRate(channels));
    storeU16(header, 32, blockAlign(channels));
    storeU16(header, 34, waveBitsPerSample);
    storeU32(header, 36, dataTag);
    storeU32(header, 40, sampleBytes);
    return header;
}

std::optional<Bytes> wave(ByteView samples, std::uint32_t channels) {
    if (samples.size() > mostSampleBytes) {
        return std::nullopt;
    }
    try {
        Bytes file;
        file.reserve(samples.size() + waveHeaderSize + spareCapacity);
        const auto header = waveHeader(static_cast<std::uint32_t>(samples.size()), channels);
        file.insert(file.end(), header.begin(), header.end());
        file.insert(file.end(), samples.begin(), samples.end());
        return file;
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

bool addWaveHeader(Bytes& file, std::uint32_t channels) {
    const std::uint64_t sampleBytes = file.size() - waveHeaderSize;
    if (sampleBytes > mostSampleBytes) {
        return false;
    }
    std::ranges::copy(waveHeader(static_cast<std::uint32_t>(sampleBytes), channels), file.begin());
    return true;
}

std::optional<Bytes> lpcm(ByteView data) {
    const auto samples = lpcmIn(data);
    return samples ? std::optional(Bytes(samples->begin(), samples->end())) : std::nullopt;
}

std::optional<ByteView> lpcmIn(ByteView data) {
    // If shorter than a canonical header, even a valid WAVE is passed on unchanged.
    if (!isWave(data) || data.size() < waveHeaderSize) {
        return data;
    }
    for (auto chunk = firstSubchunk(data); chunk.length != 0; chunk = subchunkAfter(data, chunk)) {
        if (tagOf(data, chunk) != dataTag) {
            continue;
        }
        return data.subspan(chunk.location + chunkHeadSize, chunk.length - chunkHeadSize);
    }
    return std::nullopt;
}

}  // namespace kzq
