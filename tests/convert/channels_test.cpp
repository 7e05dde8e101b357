#include <cmath>

#include "converting.h"
#include "loops/facts.h"

namespace kzq {
namespace {

class Channels : public Converting {
  protected:
    /// The result for a source in which each channel has a constant value, given in 1/1000 of full scale: one
    /// frame of it.
    Samples mixed(const std::vector<double>& levels, const std::string& arguments) const {
        Samples samples;
        for (int i = 0; i < 4'000; ++i) {
            for (const double value : levels) {
                samples.push_back(static_cast<std::int32_t>(std::lround(value / 1000 * fullScale)));
            }
        }
        shop_.write("levels.wav",
                    waveOf(samples, framesPerSecond, static_cast<std::uint16_t>(levels.size())));
        const Samples result = converted(shop_.encode("source.wav", arguments));
        return result.size() == 8'000 ? Samples{result[4'000], result[4'001]} : Samples{};
    }

    static ::testing::Matcher<Samples> isAbout(double left, double right) {
        const auto about = [](double value) {
            return ::testing::AllOf(::testing::Ge(std::lround((value / 1000 - 1e-5) * fullScale)),
                                    ::testing::Le(std::lround((value / 1000 + 1e-5) * fullScale)));
        };
        return ::testing::ElementsAre(about(left), about(right));
    }
};

TEST_F(Channels, MonoBecomesTwoEqualSidesAtFullLevel) {
    const Samples master = noise(10'001, 24, 1);
    Samples doubled;
    for (const std::int32_t sample : master) {
        doubled.insert(doubled.end(), 2, sample);
    }
    EXPECT_EQ(doubled, converted(shop_.write("mono.wav", wave(packed(master), 1).value())));
    EXPECT_EQ(doubled, converted(shop_.encode("mono.flac", "-i mono.wav"))) << "it has the MD5 of one side";
}

TEST_F(Channels, MoreChannelsAreMixedDownAndNeverClip) {
    constexpr double half = 0.707107;
    constexpr double whole = 1 + 2 * half;
    const std::string surround = "-channel_layout 5.1 -i levels.wav -c:a pcm_s24le";
    // front left, front right, front centre, low frequencies, back left, back right
    EXPECT_THAT(mixed({900, 0, 0, 0, 0, 0}, surround), isAbout(900 / whole, 0));
    EXPECT_THAT(mixed({0, 900, 0, 0, 0, 0}, surround), isAbout(0, 900 / whole));
    EXPECT_THAT(mixed({0, 0, 900, 0, 0, 0}, surround), isAbout(900 * half / whole, 900 * half / whole));
    EXPECT_THAT(mixed({0, 0, 0, 900, 0, 0}, surround), isAbout(0, 0));
    EXPECT_THAT(mixed({0, 0, 0, 0, 900, 300}, surround), isAbout(900 * half / whole, 300 * half / whole));
    EXPECT_THAT(mixed({999, 999, 999, 0, 999, 999}, surround), isAbout(999, 999));
    // The layout is unknown: channels alternate between the sides.
    EXPECT_THAT(mixed({800, 400, 800, 400, 800, 400, 800, 400, 0, 0}, "-i levels.wav -c:a pcm_s24le"),
                isAbout(800, 400));
}

}  // namespace
}  // namespace kzq
