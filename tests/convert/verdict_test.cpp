#include "converting.h"
#include "loops/facts.h"

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

    /// "exact 40000", "broken 27": the verdict, or the flaw with the milliseconds that are missing.
    std::string verdictOn(const Bytes& source, const Samples& expected = {}) const {
        auto with = options();
        with.salvage = true;
        const auto strict = convert(shop_.write("source.mp3", source));
        const auto salvaged = Conversion(with).convert(shop_.at("source.mp3"));
        if (!salvaged) {
            return std::string(troubleName(salvaged.error().kind));
        }
        EXPECT_EQ(salvaged->flaw.has_value(), !strict) << "only a flaw makes a difference";
        if (!strict) {
            EXPECT_EQ(strict.error().kind, salvaged->flaw->kind);
            return std::string(troubleName(salvaged->flaw->kind)) + " " + salvaged->flaw->words;
        }
        if (!expected.empty()) {
            EXPECT_EQ(expected, samplesOf(strict->path)) << "not shifted";
        }
        return verdictName(strict->verdict) + (" " + std::to_string(strict->frames));
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
    const Samples coded = converted(shop_.at("lame.mp3"));
    const Samples uncounted = converted(shop_.at("bare.mp3"));
    const Samples lossless = noise(frames, 16);
    for (const auto& [front, back] :
         std::vector<std::pair<Bytes, Bytes>>{{{}, Bytes(1)},
                                              {id3, Bytes(2000)},
                                              {joined({id3, Bytes(3000)}), id3},
                                              {{}, joined({lyrics, id3v1})},
                                              {joined({id3, id3}), joined({ape, id3v1, Bytes(9)})}}) {
        EXPECT_EQ("exact 80000", verdictOn(joined({front, lame_, back}), coded));
        EXPECT_EQ("whole " + std::to_string(uncounted.size() / 2),
                  verdictOn(joined({front, bare_, back}), uncounted));
        EXPECT_EQ("exact 80000", verdictOn(joined({front, flac_, back}), lossless));
    }
}

}  // namespace
}  // namespace kzq
