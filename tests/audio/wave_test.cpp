#include "audio/wave.h"

#include <gmock/gmock.h>
#include <sys/mman.h>

#include <initializer_list>
#include <limits>
#include <new>
#include <string>

#include "platform/little_endian.h"
#include "refused_allocation.h"

using namespace kzq;
using namespace std::string_literals;

namespace {

const std::string stereo = "\x01\x00\x02\x00\x44\xAC\x00\x00\x98\x09\x04\x00\x06\x00\x18\x00"s;

Bytes bytes(const std::string& text) {
    return {text.begin(), text.end()};
}

std::string word(std::uint32_t value) {
    Bytes field(4);
    storeU32(field, 0, value);
    return {field.begin(), field.end()};
}

std::string chunk(const std::string& id, const std::string& body) {
    return id + word(static_cast<std::uint32_t>(body.size())) + body;
}

Bytes riff(const std::string& chunks) {
    return bytes(chunk("RIFF", "WAVE" + chunks));
}

const std::string fmt = chunk("fmt ", stereo);
const std::string six = chunk("data", "abcdef");
const std::string list = chunk("LIST", "odd");

/// Address space that uses memory only for pages that are written; kept until the program ends.
std::span<std::uint8_t> vastBuffer(std::size_t size) {
    void* const memory =
        mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (memory == MAP_FAILED) {
        throw std::bad_alloc();
    }
    return {static_cast<std::uint8_t*>(memory), size};
}

TEST(Wave, HeaderIsCanonicalByteForByte) {
    EXPECT_EQ(wave(bytes("abcdef"), 2),
              bytes("RIFF\x2A\0\0\0WAVEfmt \x10\0\0\0\x01\0\x02\0\x44\xAC\0\0\x98\x09\x04\0\x06\0\x18\0"
                    "data\x06\0\0\0abcdef"s));
}

TEST(Wave, OrderAndCountOfSubchunks) {
    struct Case {
        std::string chunks;
        bool wave;
        bool perfect;
    };
    std::string malformed = six;
    malformed[0] = '\x7F';
    const std::initializer_list<Case> cases = {
        {fmt + six, true, true},
        {six + fmt, true, true},
        {fmt + list + six, true, true},
        {fmt + list + "\0"s + six, false, false},  // a pad byte is not skipped
        {fmt + six + six, true, true},
        {six + six + fmt, true, false},
        {fmt + fmt + six, true, false},
        {fmt + six + malformed, true, true},
        {fmt + malformed + six, false, false},
        {chunk("fmt ", stereo + "\0\0"s) + six, true, false},
        {six + chunk("fmt ", ""), true, false},
        {fmt + list, false, false},
        {six + list, false, false},
        {"", false, false},
    };
    for (const auto& [chunks, wave, perfect] : cases) {
        EXPECT_EQ(isWave(riff(chunks)), wave) << chunks;
        EXPECT_EQ(isPerfectWave(riff(chunks), 2), perfect) << chunks;
    }
}

TEST(Wave, EveryBitOfThePreambleAndTheFormatCounts) {
    for (std::size_t bit = 0; bit < 96; ++bit) {
        Bytes file = riff(fmt + six);
        file[bit / 8] ^= static_cast<std::uint8_t>(1U << bit % 8);
        EXPECT_FALSE(isWave(file)) << "bit " << bit;
    }
    for (std::size_t bit = 0; bit < 8 * stereo.size(); ++bit) {
        Bytes file = riff(fmt + six);
        file[20 + bit / 8] ^= static_cast<std::uint8_t>(1U << bit % 8);
        EXPECT_TRUE(isWave(file));
        EXPECT_FALSE(isPerfectWave(file, 2)) << "bit " << bit;
    }
}

TEST(Wave, LpcmTakesTheFirstBodyAndPassesOtherDataOn) {
    EXPECT_EQ(lpcm(riff(list + chunk("data", "1st") + fmt + six)), bytes("1st"));
    EXPECT_EQ(lpcm(riff(fmt + chunk("data", ""))), Bytes{});
    EXPECT_EQ(lpcm(bytes("raw")), bytes("raw"));
    EXPECT_EQ(lpcm({}), Bytes{});
    // If shorter than a canonical file, even a valid WAVE is passed on unchanged.
    for (const std::string& body : {std::string(15, 's'), std::string(16, 's')}) {
        const Bytes file = riff(chunk("fmt ", "") + chunk("data", body));
        ASSERT_TRUE(isWave(file));
        EXPECT_EQ(lpcm(file), file.size() < 44 ? file : bytes(body));
    }
}

TEST(Wave, LargestFilesThatARiffSizeCanCount) {
    constexpr std::size_t most = 4'294'967'258;
    const auto samples = vastBuffer(most + 1);
    EXPECT_EQ(wave(samples, 2), std::nullopt);
    EXPECT_EQ(test::refusedAllocation(), 0U) << "refused by its size, not for want of memory";
    EXPECT_EQ(wave(samples.first(most), 2), std::nullopt) << "no memory gives nothing, not an exception";
    EXPECT_EQ(test::refusedAllocation(), most + 144);

    const auto file = vastBuffer(std::size_t{std::numeric_limits<std::uint32_t>::max()} + 8);
    const std::size_t body = file.size() - 12 - 8 - fmt.size();
    const auto put = [&](std::size_t offset, const std::string& text) {
        std::copy(text.begin(), text.end(), file.subspan(offset).begin());
    };
    put(0, "RIFF\xFF\xFF\xFF\xFFWAVEdata"s + word(static_cast<std::uint32_t>(body)));
    put(20 + body, fmt);
    EXPECT_TRUE(isPerfectWave(file, 2));
    put(16, word(static_cast<std::uint32_t>(body) + 1));
    EXPECT_FALSE(isWave(file));
}

}  // namespace
