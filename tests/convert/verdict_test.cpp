#include "converting.h"
#include "foreign_files.h"

namespace kzq {
namespace {

/// Sources with something in front, behind, missing or broken.
class Verdicts : public Converting {
  protected:
    Verdicts() {
        shop_.write("good.wav", wave(packed(noise(frames, 16)), 2).value());
        lame_ = readFile(shop_.make("lame.mp3", "lame --quiet -b 128 good.wav lame.mp3"));
        bare_ = readFile(shop_.encode("bare.mp3", "-i good.wav -b:a 128k -write_xing 0"));
        flac_ = readFile(shop_.encode("good.flac", "-i good.wav"));
    }

    static Bytes joined(std::initializer_list<Bytes> parts) {
        Bytes all;
        for (const auto& part : parts) {
            all.insert(all.end(), part.begin(), part.end());
        }
        return all;
    }
    static Bytes text(const std::string& text) { return {text.begin(), text.end()}; }
    static Bytes half(Bytes bytes) {
        bytes.resize(bytes.size() / 2);
        return bytes;
    }
    /// With another byte at `place`.
    static Bytes changed(Bytes bytes, std::size_t place, unsigned mask, std::size_t length = 1) {
        std::fill_n(bytes.begin() + static_cast<std::ptrdiff_t>(place), length,
                    static_cast<std::uint8_t>(bytes.at(place) ^ mask));
        return bytes;
    }

    /// "ends-early 27": why it is refused, and the milliseconds that are missing if it is salvaged.
    std::string flawOf(const Bytes& bytes) const {
        const auto source = shop_.write("source.wav", bytes);
        const auto refused = convert(source);
        auto with = options();
        with.salvage = true;
        const auto salvaged = Conversion(with).convert(source);
        if (refused || !salvaged || !salvaged->flaw) {
            return refused || salvaged ? "no flaw" : "lost";
        }
        EXPECT_EQ(refused.error().kind, salvaged->flaw->kind);
        EXPECT_EQ(Verdict::shortened, salvaged->verdict);
        EXPECT_GT(salvaged->frames, 0U);
        return std::string(troubleName(salvaged->flaw->kind)) + " " + salvaged->flaw->words;
    }

    static constexpr std::size_t frames = 80'000;
    Bytes lame_;
    Bytes bare_;
    Bytes flac_;
};

TEST_F(Verdicts, TagsAndZerosAroundTheSoundAreNotSound) {
    const Bytes id3 = joined({text({"ID3\4\0\0\0\0\2\1", 10}), Bytes(257)});
    const Bytes id3v1 = joined({text("TAG"), Bytes(125)});
    const Bytes lyrics = text("LYRICSBEGININD0000200LYR00005hello000030LYRICS200");
    const Bytes ape = joined({text({"APETAGEX\xD0\7\0\0\x28\0\0\0\1\0\0\0\0\0\0\xA0", 24}), Bytes(48)});
    const std::vector<std::pair<Bytes, Bytes>> surroundings{
        {id3, Bytes(1)},
        {joined({id3, Bytes(3000)}), joined({lyrics, id3v1})},
        {joined({id3, id3}), joined({ape, id3, Bytes(9)})}};
    for (const auto& [sound, verdict] :
         {std::pair(lame_, Verdict::exact), {bare_, Verdict::whole}, {flac_, Verdict::exact}}) {
        const Samples expected = converted(shop_.write("plain.mp3", sound));
        for (const auto& [front, back] : surroundings) {
            const auto result = convert(shop_.write("source.mp3", joined({front, sound, back})));
            ASSERT_TRUE(result) << troubleName(result.error().kind);
            EXPECT_EQ(expected, samplesOf(result->path)) << "not shifted";
            EXPECT_EQ(verdictName(verdict), verdictName(result->verdict));
        }
    }
    // The last byte of an MP3 is padding of which its count knows.
    lame_.pop_back();
    EXPECT_EQ(frames * 2, converted(shop_.write("last.mp3", lame_)).size());
}

TEST_F(Verdicts, WhatIsMissing) {
    const Bytes good = wave(packed(noise(frames, 16)), 2).value();
    const Bytes aiff = readFile(shop_.encode("good.aiff", "-i good.wav"));
    // Between two of the decoder's packets, where the cut does not show.
    Bytes atPacket = rf64(good);
    atPacket.resize(waveHeaderSize + 36 + std::size_t{8} * 4'092);
    constexpr std::size_t flacCount = 25;
    constexpr std::size_t flacDigest = 26;
    EXPECT_EQ("ends-early 1", flawOf(changed(good, 40, 6))) << "the header counts a frame more";
    EXPECT_EQ("ends-early 908", flawOf(half(good)));
    EXPECT_EQ("ends-early 908", flawOf(half(aiff)));
    EXPECT_EQ("ends-early 1691", flawOf(atPacket));
    EXPECT_EQ("ends-early 925", flawOf(half(lame_)));
    EXPECT_EQ("broken 586", flawOf(changed(lame_, lame_.size() / 3, 0xFF, 9'000)));
    EXPECT_EQ("ends-early ", flawOf(half(bare_)));
    EXPECT_EQ("broken 601", flawOf(changed(bare_, bare_.size() / 3, 0xFF, 9'000)));
    const std::size_t third = bare_.size() / 3;
    EXPECT_EQ("broken 601", flawOf(changed(bare_, third, bare_.at(third), 9'000))) << "zeros";
    EXPECT_EQ("broken 979", flawOf(half(flac_)));
    EXPECT_EQ("broken 105", flawOf(changed(flac_, flac_.size() / 2, 1)));
    EXPECT_EQ("ends-early 1", flawOf(changed(flac_, flacCount, 1))) << "a frame more";
    EXPECT_EQ("broken ", flawOf(changed(flac_, flacDigest, 1)));
    EXPECT_EQ("lost", flawOf(half(readFile(shop_.encode("good.m4a", "-i good.wav -c:a aac")))));
}

TEST_F(Verdicts, WhatTheDecoderSeesCountsNotTheHeader) {
    Bytes twice = readFile(shop_.encode("cd.wav", "-i good.wav -c:a pcm_s16le"));
    const auto format = twice.begin() + 12;
    Bytes other(format, format + 24);  // a second one, which the decoder skips:
    other.at(8 + 2) = 1;               // mono,
    other.at(8 + 14) = 32;             // so many bits
    twice.insert(format + 24, other.begin(), other.end());
    EXPECT_EQ(samplesOf(shop_.at("good.wav")), converted(shop_.write("twice.wav", twice)));
}

}  // namespace
}  // namespace kzq
