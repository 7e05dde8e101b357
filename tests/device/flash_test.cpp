#include "pedal_fixture.h"

namespace kzq::test {
namespace {

class Flashing : public PedalTest {
  protected:
    bool flash(Bytes image) {
        return looper().flashFirmware(std::move(image), [this](bool flashed) {
            EXPECT_FALSE(executor.onMainThread());
            EXPECT_EQ(looper().operation(), KZQ7306::idle);
            EXPECT_FALSE(looper().flashPending());
            results.push_back(flashed);
        });
    }
    /// The wire's actions with the second at which they happened, as in "8.000 out 5".
    std::vector<std::string> timed() const {
        std::vector<std::string> texts;
        for (const auto& event : pedal.journal()) {
            if (event.kind == WireEvent::Kind::control && event.code >= 0xE8 && event.code != 0xEF) {
                continue;
            }
            const auto seconds = std::chrono::duration<double>(event.time.time_since_epoch()).count();
            std::array<char, 48> line{};
            std::snprintf(line.data(), line.size(), "%.3f %s", seconds, text(event).c_str());
            texts.emplace_back(line.data());
        }
        return texts;
    }

    std::vector<bool> results;
};

TEST_F(Flashing, SendsANormalPedalIntoItsLoaderAndGoesOnWhenItReturns) {
    const Bytes image{1, 2, 3, 4, 5};
    ASSERT_TRUE(flash(image));
    executor.settle();
    EXPECT_THAT(actions(), ElementsAre("E4 1 0"));
    EXPECT_EQ(looper().operation(), KZQ7306::flashing);
    executor.advance(4s);  // the pedal is back since 1.6 s, and the loader prepares
    EXPECT_THAT(delegate->events, ElementsAre("connected p@0", "disconnected@100", "connected b@1600"));
    looper().refresh();
    executor.advance(4s);
    EXPECT_EQ(pedal.journal().back().time.time_since_epoch(), 1600ms);  // nothing else talks to it meanwhile
    executor.advance(1min);
    EXPECT_THAT(results, ElementsAre(true));
    EXPECT_EQ(pedal.installedFirmware(), image);
    EXPECT_THAT(timed(),
                ElementsAre("0.000 E4 1 0", "0.100 unplugged", "1.600 plugged", "1.600 E4 1 0", "9.600 out 5",
                            "10.600 E5 1 0", "10.600 out 36", "10.700 unplugged", "12.200 plugged"));
    EXPECT_EQ(executor.mainThreadWaits(), 0U);
}

}  // namespace
}  // namespace kzq::test
