#include "foreign_files.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>

#include "loops/facts.h"
#include "platform/little_endian.h"

namespace kzq {
namespace {

Bytes box(std::string_view name, const Bytes& body) {
    Bytes bytes(8 + body.size());
    for (std::size_t i = 0; i < 4; ++i) {
        bytes[i] = static_cast<std::uint8_t>(bytes.size() >> (24 - 8 * i) & 0xFFU);
    }
    std::ranges::copy(name.substr(0, 4), bytes.begin() + 4);
    std::ranges::copy(body, bytes.begin() + 8);
    return bytes;
}

Bytes joined(std::initializer_list<Bytes> parts) {
    Bytes bytes;
    for (const auto& part : parts) {
        bytes.insert(bytes.end(), part.begin(), part.end());
    }
    return bytes;
}

Bytes textBody(std::string_view text, std::size_t zeros) {
    Bytes body(zeros + text.size());
    std::ranges::copy(text, body.begin() + static_cast<std::ptrdiff_t>(zeros));
    return body;
}

}  // namespace

Bytes wave24In32(const Samples& samples) {
    Bytes file = wave({}, 2).value();
    file.resize(20);
    file.resize(20 + 40 + 8);
    storeU32(file, 16, 40);
    storeU16(file, 20, 0xFFFE);
    storeU16(file, 22, 2);
    storeU32(file, 24, framesPerSecond);
    storeU32(file, 28, framesPerSecond * 8);
    storeU16(file, 32, 8);
    storeU16(file, 34, 32);
    storeU16(file, 36, 22);
    storeU16(file, 38, 24);
    storeU32(file, 40, 3);
    constexpr std::array<std::uint8_t, 16> pcm{1,    0, 0, 0,    0, 0,    0x10, 0,
                                               0x80, 0, 0, 0xAA, 0, 0x38, 0x9B, 0x71};
    std::ranges::copy(pcm, file.begin() + 44);
    storeU32(file, 60, 0x61746164);
    storeU32(file, 64, static_cast<std::uint32_t>(samples.size() * 4));
    for (const std::int32_t sample : samples) {
        const std::size_t end = file.size();
        file.resize(end + 4);
        storeU32(file, end, static_cast<std::uint32_t>(sample) << 8U);
    }
    storeU32(file, 4, static_cast<std::uint32_t>(file.size() - 8));
    return file;
}

Bytes rf64(Bytes wave) {
    constexpr std::string_view dataName = "data";
    const auto data = std::search(wave.begin(), wave.end(), dataName.begin(), dataName.end());
    const auto sizeField = static_cast<std::size_t>(data - wave.begin()) + 4;
    Bytes sizes(8 + 28);
    std::ranges::copy(std::string_view("ds64"), sizes.begin());
    storeU32(sizes, 4, 28);
    storeU32(sizes, 8, static_cast<std::uint32_t>(wave.size() - 8 + sizes.size()));
    storeU32(sizes, 16, loadU32(wave, sizeField));
    std::ranges::copy(std::string_view("RF64"), wave.begin());
    storeU32(wave, 4, 0xFFFFFFFF);
    storeU32(wave, sizeField, 0xFFFFFFFF);
    wave.insert(wave.begin() + 12, sizes.begin(), sizes.end());
    return wave;
}

Bytes rifx(Bytes wave) {
    wave[3] = 'X';
    const std::array<std::pair<std::size_t, std::size_t>, 9> fields{
        {{4, 4}, {16, 4}, {20, 2}, {22, 2}, {24, 4}, {28, 4}, {32, 2}, {34, 2}, {40, 4}}};
    for (const auto& [at, width] : fields) {
        const auto begin = wave.begin() + static_cast<std::ptrdiff_t>(at);
        std::reverse(begin, begin + static_cast<std::ptrdiff_t>(width));
    }
    return wave;
}

Bytes withLengthTag(Bytes mp4, std::uint32_t priming, std::uint32_t padding, std::uint64_t length) {
    constexpr std::string_view movieName = "moov";
    const auto movie = std::search(mp4.begin(), mp4.end(), movieName.begin(), movieName.end()) - 4;
    constexpr std::string_view oldNotes = "udta";
    const auto old = std::search(movie, mp4.end(), oldNotes.begin(), oldNotes.end());
    std::copy_n("free", old == mp4.end() ? 0 : 4, old);
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), " 00000000 %08X %08X %016lX", priming, padding, length);
    const Bytes tag =
        box("----", joined({box("mean", textBody("com.apple.iTunes", 4)),
                            box("name", textBody("iTunSMPB", 4)), box("data", textBody(text.data(), 8))}));
    const Bytes user = box("udta", box("meta", joined({Bytes(4), box("ilst", tag)})));
    Bytes movieBody(movie + 8, mp4.end());
    movieBody.insert(movieBody.end(), user.begin(), user.end());
    mp4.erase(movie, mp4.end());
    return joined({mp4, box(movieName, movieBody)});
}

}  // namespace kzq
