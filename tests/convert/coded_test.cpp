#include "converting.h"
#include "foreign_files.h"
#include "loops/facts.h"
#include "sound_analysis.h"

namespace kzq {
namespace {

/// Sources that a codec has padded with silence.
class Coded : public Converting {
  protected:
    /// A tone on both sides: a shift of one sample would be a difference of -11 dB.
    Samples master(std::size_t frames) const {
        Samples samples = sine(frames, 1999, framesPerSecond, 0.5);
        shop_.write("master.wav", wave(packed(samples), 2).value());
        return samples;
    }

    void expectSame(const Samples& master, const std::filesystem::path& coded) const {
        SCOPED_TRACE(coded);
        const Samples samples = converted(coded);
        EXPECT_EQ(master.size() / 2, samples.size() / 2);
        EXPECT_LT(differenceLevel(samples, master), -20);
    }
};

TEST_F(Coded, Mp3WithANoteOfItsPaddingIsExact) {
    const Samples samples = master(100'003);
    expectSame(samples, shop_.make("cbr.mp3", "lame --quiet -b 320 master.wav cbr.mp3"));
    expectSame(samples,
               shop_.make("vbr.mp3", "lame --quiet -V 0 --tt Title --id3v2-only master.wav vbr.mp3"));
    expectSame(samples, shop_.make("mono.mp3", "lame --quiet -m m -b 160 master.wav mono.mp3"));
    expectSame(samples, shop_.encode("other.mp3", "-i master.wav -c:a libmp3lame -b:a 256k"));
}

TEST_F(Coded, AacInMpeg4IsExactWhereverTheLastPacketEnds) {
    // 5 frames in the last packet, which a length in whole milliseconds leaves out; and 1,019.
    for (const std::size_t frames : {60 * 1024U + 5U, 60 * 1024U + 1'019U}) {
        const Samples samples = master(frames);
        expectSame(samples, shop_.encode("edit.m4a", "-i master.wav -c:a aac -b:a 256k"));
        const auto bare = shop_.encode("bare.m4a",
                                       "-i master.wav -c:a aac -b:a 256k -use_editlist 0 -map_metadata -1 "
                                       "-fflags +bitexact -flags:a +bitexact");
        const auto padding = static_cast<std::uint32_t>(1024 - (frames % 1024));
        expectSame(samples, shop_.write("tagged.m4a", withLengthTag(readFile(bare), 1024, padding, frames)));
    }
    const Samples half = sine(48'000, 1999, 48'000, 0.5);
    shop_.write("half.wav", waveOf(half, 48'000, 2));
    EXPECT_EQ(44'100U * 2, converted(shop_.encode("half.m4a", "-i half.wav -c:a aac")).size());
}

}  // namespace
}  // namespace kzq
