#include "converting.h"
#include "foreign_files.h"
#include "platform/little_endian.h"
#include "sound_analysis.h"

namespace kzq {
namespace {

namespace fs = std::filesystem;

using Accepted = Converting;

struct LosslessKind {
    std::string name;
    unsigned bits;
    std::string arguments;
};

TEST_F(Accepted, LosslessKindsPassBitForBit) {
    // The last frames count: an odd length, in no way a multiple of a packet.
    constexpr std::size_t frames = 54'321;
    const std::vector<LosslessKind> kinds{{"u8.wav", 8, "-c:a pcm_u8"},
                                          {"s16.wav", 16, "-c:a pcm_s16le"},
                                          {"s24.wav", 24, "-c:a pcm_s24le"},
                                          {"f32.wav", 24, "-c:a pcm_f32le"},
                                          {"rf64.wav", 24, "-c:a pcm_s24le -rf64 always"},
                                          {"s16.aiff", 16, "-c:a pcm_s16be"},
                                          {"sowt16.aifc", 16, "-c:a pcm_s16le -f aiff"},
                                          {"s24.flac", 24, "-c:a flac -sample_fmt s32"},
                                          {"alac.m4a", 24, "-c:a alac -sample_fmt s32p"},
                                          {"misnamed.mp3", 16, "-c:a pcm_s16le -f wav"}};
    const Samples master = noise(frames, 24);
    for (const auto& kind : kinds) {
        SCOPED_TRACE(kind.name);
        const Samples expected = kind.bits == 24 ? master : noise(frames, kind.bits);
        shop_.write("master.wav", wave(packed(expected), 2).value());
        EXPECT_EQ(expected, converted(shop_.encode(kind.name, "-i master.wav " + kind.arguments)));
    }
    EXPECT_EQ(master, converted(shop_.write("24in32.wav", wave24In32(master))));
    EXPECT_EQ(master, converted(shop_.write("24in32rf64.wav", rf64(wave24In32(master)))));
    Bytes withNote = wave(packed(master), 2).value();
    const std::string note("note\3\0\0\0odd\0", 12);  // of odd length, with its pad byte
    withNote.insert(withNote.begin() + 36, note.begin(), note.end());
    storeU32(withNote, 4, static_cast<std::uint32_t>(withNote.size() - 8));
    EXPECT_EQ(master, converted(shop_.write("note.wav", withNote)));
}

TEST_F(Accepted, KindsForTheToolHaveTheirLength) {
    shop_.write("master.wav", wave(packed(noise(54'321, 24)), 2).value());
    auto every = options();
    every.everyKind = true;
    for (const auto& [name, arguments] :
         std::vector<std::pair<std::string, std::string>>{{"s24.w64", "-c:a pcm_s24le"},
                                                          {"s24.caf", "-c:a pcm_s24be"},
                                                          {"s32.wv", "-c:a wavpack -sample_fmt s32p"},
                                                          {"vorbis.ogg", "-c:a libvorbis"},
                                                          {"opus.ogg", "-ar 48000 -c:a libopus"}}) {
        const auto source = shop_.encode(name, "-i master.wav " + arguments);
        const auto whole = Conversion(every).convert(source);
        ASSERT_TRUE(whole) << name;
        EXPECT_EQ(54'321U, whole->frames) << name;
        EXPECT_EQ(Verdict::exact, whole->verdict) << name;
        EXPECT_TRUE(name[0] != 's' || readFile(shop_.at("master.wav")) == readFile(whole->path)) << name;
        fs::resize_file(source, fs::file_size(source) / 2);
        EXPECT_FALSE(Conversion(every).convert(source)) << name;
    }
}

TEST_F(Accepted, WaveFilesWhoseWriterCouldNotNoteTheLength) {
    const Samples master = noise(30'001, 16);
    shop_.write("master.wav", wave(packed(master), 2).value());
    EXPECT_EQ(master,
              converted(shop_.make("piped1.wav", "ffmpeg -v error -i master.wav -f wav - > piped1.wav")));
    EXPECT_EQ(master, converted(shop_.make("piped2.wav", "sox -V1 master.wav -t wav - | cat > piped2.wav")));
    Bytes zero = readFile(shop_.at("master.wav"));
    std::fill_n(zero.begin() + 4, 4, std::uint8_t{0});
    std::fill_n(zero.begin() + 40, 4, std::uint8_t{0});
    EXPECT_EQ(master, converted(shop_.write("crashed.wav", zero)));
}

TEST_F(Accepted, EveryRateComesOutWithTheExactLengthAndClean) {
    for (const std::uint32_t rate : {4'000U, 44'056U, 48'000U, 192'000U}) {
        SCOPED_TRACE(rate);
        const std::size_t frames = rate + 7;
        const auto source = shop_.write("tone.wav", waveOf(sine(frames, 997, rate, 0.5), rate, 2));
        const Samples samples = converted(source);
        EXPECT_EQ((frames * 44'100 + rate / 2) / rate, samples.size() / 2);
        EXPECT_LT(residueBelowTone(samples, 997), -130);
        EXPECT_NEAR(-6.02, level(samples), 0.01);
    }
}

TEST_F(Accepted, TheHeadersAloneHaveTheLength) {
    for (const auto& [name, arguments] :
         std::vector<std::pair<std::string, std::string>>{{"48.wav", "-ar 48000"},
                                                          {"22.aiff", "-ar 22050"},
                                                          {"96.flac", "-ar 96000"},
                                                          {"32.mp3", "-ar 32000"},
                                                          {"48.m4a", "-ar 48000 -c:a aac"}}) {
        const auto length =
            promisedLength(shop_.encode(name, "-f lavfi -i anullsrc=r=44100:cl=stereo -t 3 " + arguments));
        ASSERT_TRUE(length && *length) << name;
        EXPECT_NEAR(3 * 44'100.0, static_cast<double>((*length)->count), 2400) << name;
    }
    const auto text = shop_.write("notes.wav", Bytes(5000, 'x'));
    EXPECT_EQ(promisedLength(text).error().kind, Trouble::Kind::notAudio);
    EXPECT_EQ(promisedLength(shop_.write("rifx.wav", rifx(wave(Bytes(60), 2).value()))).error().kind,
              Trouble::Kind::unsupported);
    EXPECT_EQ(promisedLength(shop_.write("none.wav", wave({}, 2).value())).error().kind,
              Trouble::Kind::noSound);
}

TEST_F(Accepted, StopsOneFrameBehindWhatThePedalHolds) {
    const auto source = shop_.encode("hours.flac", "-f lavfi -i anullsrc=r=4000:cl=mono -t 9000");
    std::uint64_t heard = 0;
    auto listening = options();
    listening.progress = [&](std::uint64_t frames) { heard = frames; };
    const auto result = Conversion(listening).convert(source);
    ASSERT_TRUE(result) << troubleName(result.error().kind);
    EXPECT_EQ(63'504'001U, result->frames);
    EXPECT_EQ(63'504'001U, heard);
}

}  // namespace
}  // namespace kzq
