#include <cmath>
#include <limits>

#include "converting.h"
#include "platform/little_endian.h"
#include "sound_analysis.h"

namespace kzq {
namespace {

/// Sources in floating point, which may be louder than full scale.
class Levels : public Converting {
  protected:
    /// A stereo source with the same on both sides.
    std::filesystem::path source(const std::vector<float>& values, std::uint32_t rate = 44'100) const {
        Bytes file = waveOf(Samples(), rate, 2);
        file.resize(waveHeaderSize + values.size() * 8);
        storeU32(file, 4, static_cast<std::uint32_t>(file.size() - 8));
        storeU16(file, 20, 3);
        storeU32(file, 28, rate * 8);
        storeU16(file, 32, 8);
        storeU16(file, 34, 32);
        storeU32(file, 40, static_cast<std::uint32_t>(values.size() * 8));
        for (std::size_t i = 0; i < values.size() * 2; ++i) {
            storeU32(file, waveHeaderSize + i * 4, std::bit_cast<std::uint32_t>(values[i / 2]));
        }
        return shop_.write("source.wav", file);
    }

    static std::vector<float> tone(double amplitude, double frequency = 997, double phase = 0) {
        std::vector<float> values(20'000);
        for (std::size_t i = 0; i < values.size(); ++i) {
            values[i] = static_cast<float>(
                amplitude * std::sin(phase + 2 * M_PI * frequency / 44'100 * static_cast<double>(i)));
        }
        return values;
    }

    static double decibels(double gain) { return 20 * std::log10(gain); }
};

TEST_F(Levels, WhatWouldClipIsTurnedDownAndDithered) {
    for (const std::uint32_t rate : {44'100U, 48'000U}) {
        std::vector<float> loud = tone(2);
        loud.insert(loud.end(), 20'000, 0);
        const auto result = convert(source(loud, rate));
        ASSERT_TRUE(result);
        EXPECT_NEAR(-6.02, decibels(result->gain), 0.02);
        const Samples samples = samplesOf(result->path);
        const auto [least, most] = std::ranges::minmax(samples);
        EXPECT_NEAR(0, decibels(most / fullScale), 0.01);
        EXPECT_TRUE(most < fullScale - 1 && least > -fullScale) << "nothing is flattened";
        const Samples silence(samples.end() - 10'000, samples.end());
        EXPECT_THAT(silence,
                    ::testing::AllOf(::testing::Contains(-1), ::testing::Contains(1),
                                     ::testing::Each(::testing::AllOf(::testing::Ge(-2), ::testing::Le(2)))));
    }
    EXPECT_EQ(1, convert(source(tone(1)))->gain) << "full scale itself is not too loud";
    // Filters that agree on whole numbers would flatten it on the way.
    source(tone(2));
    EXPECT_NEAR(-6.02, decibels(convert(shop_.encode("wide.wav", "-i source.wav -c:a pcm_f64le"))->gain),
                0.02);
}

TEST_F(Levels, WhatIsNoNumberIsSilence) {
    constexpr float infinite = std::numeric_limits<float>::infinity();
    for (const std::uint32_t rate : {44'100U, 48'000U}) {
        std::vector<float> values = tone(0.5);
        values[7'000] = values[7'001] = 0;
        const Samples expected = converted(source(values, rate));
        values[7'000] = std::numeric_limits<float>::quiet_NaN();
        values[7'001] = -infinite;
        const auto result = convert(source(values, rate));
        ASSERT_TRUE(result);
        EXPECT_TRUE(result->silenced);
        EXPECT_EQ(expected, samplesOf(result->path)) << rate;
    }
}

TEST_F(Levels, NormalizingGoesByThePeakBetweenTheSamples) {
    auto with = options();
    with.normalize = true;
    // All samples are 3 dB below the peak of the tone.
    const auto result = Conversion(with).convert(source(tone(0.1, 11'025, M_PI / 4)));
    ASSERT_TRUE(result);
    EXPECT_NEAR(19, decibels(result->gain), 0.2);
    EXPECT_NEAR(-1, level(samplesOf(result->path)), 0.2);
}

}  // namespace
}  // namespace kzq
