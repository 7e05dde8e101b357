#include "listening/player.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>

#include "audio/wave.h"
#include "fake_output.h"
#include "listening/samples.h"
#include "listening/shelf.h"
#include "test_folder.h"

namespace kzq::test {
namespace {

/// Frames that are all different, and never silent.
Bytes audioOf(std::size_t frames) {
    Bytes audio(frames * 6);
    std::uint32_t seed = 7306;
    std::ranges::generate(audio, [&seed] {
        seed = seed * 1664525U + 1013904223U;
        return static_cast<std::uint8_t>(seed >> 24U | 1U);
    });
    return audio;
}

std::vector<std::int32_t> part(const std::vector<std::int32_t>& heard, std::size_t from, std::size_t frames) {
    const auto first = heard.begin() + static_cast<std::ptrdiff_t>(from * 2);
    return {first, first + static_cast<std::ptrdiff_t>(frames * 2)};
}

class PlayerTest : public testing::Test {
  protected:
    std::shared_ptr<Sound> arriving(std::size_t frames) const {
        return Sound::arriving(folder.path(), 5_slot, {frames}).value();
    }
    std::shared_ptr<Sound> whole(const Bytes& audio) const {
        auto sound = arriving(audio.size() / 6);
        sound->add(audio);
        return sound;
    }

    TestFolder folder;
    FakeOutput output;
    Player player{output};
};

TEST_F(PlayerTest, ALoopGoesRoundWithoutAGapAndSaysWhatTheDeviceHasTaken) {
    const auto audio = audioOf(1001);
    player.play(whole(audio));
    for (const std::size_t frames : {1U, 700U, 9000U, 299U, 5000U}) {
        output.take(frames);
    }
    EXPECT_EQ(output.heard, asHeard(audio, 0, 15'000));
    output.waiting = 990;
    EXPECT_EQ(player.place()->at.count, (15'000U - 990) % 1001);
    output.waiting = 0;
    EXPECT_EQ(player.place()->at.count, 15'000U % 1001 - 1);
    player.stop();
    EXPECT_FALSE(player.place());
}

TEST_F(PlayerTest, WhatHasNotArrivedIsWaitedForInSilence) {
    const auto audio = audioOf(3000);
    const auto sound = arriving(3000);
    sound->add(ByteView(audio).first(6004));  // a frame may come in two pieces
    player.play(sound);
    output.take(1500);
    EXPECT_EQ(part(output.heard, 0, 1000), asHeard(audio, 0, 1000));
    EXPECT_EQ(part(output.heard, 1000, 500), std::vector<std::int32_t>(1000));
    EXPECT_EQ(player.place()->at.count, 1000U);
    sound->add(ByteView(audio).subspan(6004));
    sound->add(audio);  // padding
    EXPECT_TRUE(sound->finish());
    output.take(4000);
    EXPECT_EQ(part(output.heard, 1500, 4000), asHeard(audio, 1000, 4000));
    std::ifstream file(sound->file(), std::ios::binary);
    EXPECT_EQ(Bytes(std::istreambuf_iterator<char>(file), {}), wave(audio, 2));
    EXPECT_EQ(*sound->peaks(), peaksOf(sound->file()));
    EXPECT_EQ(sound->peaks()->known, Peaks::columns);
    const auto broken = arriving(2);
    broken->add(audioOf(1));
    EXPECT_FALSE(broken->finish());
    EXPECT_FALSE(std::filesystem::exists(broken->file()));
}

TEST_F(PlayerTest, AnotherSoundGoesOnAtTheSamePlace) {
    const auto one = audioOf(2000);
    const Bytes other(one.begin() + 600, one.begin() + 3600);  // 500 frames
    player.play(whole(one));
    output.take(1700);
    player.change(whole(other));
    output.take(600);
    EXPECT_EQ(part(output.heard, 1700, 600), asHeard(other, 200, 600));
}

TEST(Samples, SixteenBitsDoNotClip) {
    const Bytes audio{0xFF, 0xFF, 0x7F, 0x00, 0x00, 0x80, 0xFF, 0xFF, 0xFF, 0x80, 0x00, 0x00};
    std::array<std::int16_t, 4> samples{};
    convertSamples(audio, {reinterpret_cast<std::uint8_t*>(samples.data()), sizeof samples},
                   SampleForm::int16);
    EXPECT_THAT(samples, testing::ElementsAre(32767, -32768, -1, 0));
}

TEST(PeaksTest, TheyAreFoundInPieces) {
    Bytes audio(961 * 6);
    audio[2] = 0x7F;     // the first sample
    audio[5765] = 0x80;  // the last: the lowest there is
    PeakFinder finder({961});
    for (const auto byte : audio) {
        finder.add(ByteView(&byte, 1));
    }
    EXPECT_EQ(finder.peaks().heights.front(), 254);
    EXPECT_EQ(finder.peaks().heights.back(), 255);
    EXPECT_EQ(std::ranges::count(finder.peaks().heights, 0), 478);
    EXPECT_EQ(finder.peaks().known, Peaks::columns);
    PeakFinder one({2});
    one.add(ByteView(audio).first(6));
    EXPECT_EQ(one.peaks().known, Peaks::columns / 2);
    EXPECT_EQ(one.peaks().heights[239], 254);
}

}  // namespace
}  // namespace kzq::test
