#include <algorithm>
#include <chrono>

#include "linked_pedal.h"

namespace kzq {
namespace {

using namespace std::chrono_literals;
using simulator::Fault;
using simulator::FaultKind;
using simulator::WireEvent;
using testing::ElementsAre;
using testing::IsEmpty;

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
    /// What went over the wire for the update, without the queries of the pedal's state: request codes,
    /// byte counts, arrivals ('+') and departures ('-').
    std::vector<std::string> wire() const {
        std::vector<std::string> all;
        std::size_t bytes = 0;
        for (const auto& event : pedal_.journal()) {
            if (event.kind == WireEvent::Kind::bulkOut) {
                bytes += event.transferred;
                continue;
            }
            const auto text = textOf(event);
            if (bytes != 0 && !text.empty()) {
                all.push_back(std::to_string(std::exchange(bytes, 0)));
            }
            if (!text.empty()) {
                all.push_back(text);
            }
        }
        return all;
    }
    static std::string textOf(const WireEvent& event) {
        switch (event.kind) {
            case WireEvent::Kind::plugged:
                return "+";
            case WireEvent::Kind::unplugged:
                return "-";
            case WireEvent::Kind::control:
                break;
            default:
                return "";
        }
        switch (event.code) {
            case 0xE4:
                return "E4";
            case 0xE5:
                return "E5";
            case 0xE7:
                return "E7";
            default:
                return "";
        }
    }

    const Bytes image_ = imageOf("1.06");
    std::vector<bool> ends_;  ///< the argument of each call of the completion
};

TEST_F(UsbFlash, ThePedalGoesToItsLoaderAndComesBackWithTheImage) {
    startFlash();
    ASSERT_TRUE(waitUntilHeard(3));
    EXPECT_EQ(looper().stage(), 'b');
    ASSERT_TRUE(runToEnd());
    EXPECT_EQ(looper().operation(), KZQ7306::idle);
    ASSERT_TRUE(waitUntilHeard(5));
    EXPECT_THAT(delegate_.heard,
                ElementsAre("connected", "disconnected", "connected", "disconnected", "connected"));
    EXPECT_EQ(looper().stage(), 'p');
    EXPECT_EQ(looper().status(false).value_or(Status()).version, "1.06");

    EXPECT_THAT(wire(), ElementsAre("E4", "-", "+", "E4", "300001", "E5", "36", "-", "+"));
    EXPECT_THAT(executor_.takePauses(), ElementsAre(8s, 1s));
    EXPECT_EQ(pedal_.installedFirmware(), image_);  // by length and SHA-256, as in the trailer
    EXPECT_THAT(ends_, ElementsAre(true));
}

TEST_F(UsbFlash, AnUpdateWaitsForALoaderThatIsLongInComing) {
    pedal_.setReturns(false);
    startFlash();
    ASSERT_TRUE(waitUntilHeard(2));
    EXPECT_TRUE(looper().flashPending());
    EXPECT_EQ(looper().operation(), KZQ7306::flashing);
    EXPECT_FALSE(looper().flashFirmware(image_, [](bool) {}));
    EXPECT_THAT(ends_, IsEmpty());

    pedal_.setReturns(true);
    pedal_.plugIn();
    ASSERT_TRUE(runToEnd());
    EXPECT_THAT(ends_, ElementsAre(true));
    EXPECT_EQ(pedal_.installedFirmware(), image_);
    ASSERT_TRUE(waitUntilHeard(5));
}

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
    EXPECT_THAT(wire(), ElementsAre("E7", "E4", "300001", "E5", "36", "-", "+"));
    EXPECT_EQ(pedal_.installedFirmware(), image_);
    EXPECT_EQ(looper().stage(), 'p');
}

}  // namespace
}  // namespace kzq
