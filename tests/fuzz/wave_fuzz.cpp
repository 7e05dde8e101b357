// Feeds hostile buffers to the WAV functions and compares their results with a second, naive reading.

#include <algorithm>
#include <string_view>

#include "audio/wave.h"
#include "fuzz_check.h"
#include "platform/little_endian.h"

namespace {

using kzq::ByteRange;
using kzq::Bytes;
using kzq::ByteView;

/// The content of a WAVE, read with only text comparison and a running remainder.
struct Reading {
    bool hasFormat = false;
    bool hasData = false;
    std::string_view samples;

    bool isWave() const { return hasFormat && hasData; }
};

std::uint64_t sizeField(std::string_view rest) {
    std::uint64_t size = 0;
    for (std::size_t i = 4; i > 0; --i) {
        size = size * 256 + static_cast<unsigned char>(rest[3 + i]);
    }
    return size;
}

Reading readNaively(std::string_view rest) {
    Reading reading;
    if (rest.size() < 12 || !rest.starts_with("RIFF") || rest.substr(8, 4) != "WAVE") {
        return reading;
    }
    if (sizeField(rest) + 8 != rest.size()) {
        return reading;
    }
    rest.remove_prefix(12);
    while (rest.size() >= 8 && !reading.isWave()) {
        const auto id = rest.substr(0, 4);
        if (std::any_of(id.begin(), id.end(), [](char c) { return c < ' ' || c > '~'; })) {
            break;
        }
        const std::uint64_t size = sizeField(rest);
        if (size > rest.size() - 8) {
            break;
        }
        if (id == "data" && !reading.hasData) {
            reading.samples = rest.substr(8, size);
        }
        reading.hasFormat = reading.hasFormat || id == "fmt ";
        reading.hasData = reading.hasData || id == "data";
        rest.remove_prefix(8 + size);
    }
    return reading;
}

bool sameBytes(ByteView bytes, std::string_view text) {
    return std::ranges::equal(bytes, text, {}, {}, [](char c) { return static_cast<std::uint8_t>(c); });
}

void checkReading(ByteView data) {
    const Reading expected =
        readNaively({reinterpret_cast<const char*>(data.data()), data.size()});  // NOLINT(*-reinterpret-cast)
    require(kzq::isWave(data) == expected.isWave(), "isWave");
    const auto samples = kzq::lpcm(data);
    require(samples.has_value(), "lpcm always answers");
    if (expected.isWave() && data.size() >= kzq::waveHeaderSize) {
        require(sameBytes(*samples, expected.samples), "lpcm gives the first data body");
    } else {
        require(std::ranges::equal(*samples, data), "lpcm passes other data on");
    }
    const bool perfectStereo = kzq::isPerfectWave(data, 2);
    require(!perfectStereo || expected.isWave(), "a perfect WAVE is a WAVE");
    require(!perfectStereo || !kzq::isPerfectWave(data, 1), "one channel count at a time");
}

void checkRange(ByteView data, std::uint64_t offset) {
    const ByteRange range = kzq::rangeOfSubchunkAtOffset(data, offset);
    if (range.length == 0) {
        require(range == ByteRange{}, "not found is marked as such");
    } else {
        require(range.location == offset && range.length >= 8, "a sub-chunk starts where it was asked for");
        require(offset < data.size() && range.length <= data.size() - offset, "a sub-chunk lies inside");
    }
}

void checkRoundTrip(ByteView samples, std::uint32_t channels) {
    auto file = kzq::wave(samples, channels);
    require(file && file->size() == samples.size() + kzq::waveHeaderSize, "wave adds its header");
    require(kzq::isPerfectWave(*file, channels) == (channels <= 0xFFFF), "wave is perfect");
    const auto back = kzq::lpcm(*file);
    require(back && std::ranges::equal(*back, samples), "lpcm undoes wave");
    file->push_back(0);
    require(!kzq::isWave(*file), "a trailing byte makes it no WAVE");
}

/// Puts a preamble with the right size in front: the fuzzer would seldom guess it.
Bytes withPreamble(ByteView chunks) {
    Bytes data(12);
    kzq::storeU32(data, 0, 0x46464952);
    kzq::storeU32(data, 4, static_cast<std::uint32_t>(chunks.size()) + 4);
    kzq::storeU32(data, 8, 0x45564157);
    data.insert(data.end(), chunks.begin(), chunks.end());
    return data;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t size) {
    const ByteView data(input, size);
    checkReading(data);
    checkReading(withPreamble(data));
    if (size < 8) {
        return 0;
    }
    const std::uint64_t high = kzq::loadU32(data, 4);
    const std::uint64_t offset = high << 32U | kzq::loadU32(data, 0);
    const ByteView rest = data.subspan(8);
    checkRange(data, offset);
    checkRange(data, offset % (size + 1));
    checkRange(data, 0 - offset % 16);
    checkRoundTrip(rest, kzq::loadU32(data, 0));
    return 0;
}
