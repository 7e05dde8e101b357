#include <algorithm>
#include <chrono>

#include "linked_pedal.h"

namespace kzq {
namespace {

using namespace std::chrono_literals;
using simulator::Fault;
using simulator::FaultKind;
using testing::ElementsAre;

/// Longer than one transfer of the port, and not a multiple of a packet.
Bytes imageOf(const std::string& version) {
    constexpr std::size_t size = 300'001;
    Bytes image(size);
    std::uint32_t noise = 7306;
    for (auto& byte : image) {
        noise = noise * 1'664'525 + 1'013'904'223;
        byte = static_cast<std::uint8_t>(noise >> 24);
    }
    const std::string mark = "7306 firmware " + version;
    std::copy(mark.begin(), mark.end(), image.begin() + 1000);
    return image;
}

class UsbFlash : public LinkedPedalTest {
  protected:
    UsbFlash() : LinkedPedalTest({.memory = {}, .version = "1.05"}) { pedal_.clearJournal(); }

    void startFlash() {
        ends_.clear();
        ASSERT_TRUE(looper().flashFirmware(
            image_, [this](bool flashed) { onMain([=, this] { ends_.push_back(flashed); }); }));
    }
    bool runToEnd() {
        return runUntil([this] { return !ends_.empty(); });
    }
    const Bytes image_ = imageOf("1.06");
    std::vector<bool> ends_;  ///< the argument of each call of the completion
};

TEST_F(UsbFlash, ADepartureInTheMiddleOfTheImageEndsItOnceAndTheLoaderTakesAnother) {
    pedal_.plan(
        {.kind = FaultKind::silence, .where = Fault::Where::bulkOut, .code = std::nullopt, .count = 3});
    startFlash();
    ASSERT_TRUE(waitUntilHeard(3));
    ASSERT_TRUE(bus_.waitUntilBlocked());
    EXPECT_FALSE(looper().flashPending());
    EXPECT_EQ(looper().operation(), KZQ7306::flashing);
    pedal_.unplug();
    ASSERT_TRUE(runToEnd());
    ASSERT_TRUE(waitUntilHeard(4));
    EXPECT_EQ(looper().operation(), KZQ7306::idle);
    EXPECT_TRUE(looper().disconnected());
    EXPECT_EQ(pedal_.installedFirmware(), std::nullopt);

    pedal_.plugIn();
    ASSERT_TRUE(waitUntilHeard(5));
    EXPECT_EQ(looper().stage(), 'b');
    EXPECT_THAT(ends_, ElementsAre(false));
    EXPECT_THAT(executor_.takePauses(), ElementsAre(8s));
    pedal_.clearJournal();
    startFlash();
    ASSERT_TRUE(runToEnd());
    ASSERT_TRUE(waitUntilHeard(7));
    EXPECT_THAT(ends_, ElementsAre(true));
    EXPECT_EQ(pedal_.installedFirmware(), image_);
    EXPECT_EQ(looper().stage(), 'p');
}

}  // namespace
}  // namespace kzq
