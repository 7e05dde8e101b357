// The loader, arrival and departure.

#include <memory>

#include "platform/digest.h"
#include "wire.h"

namespace kzq::simulator {
namespace {

class Loader : public testing::Test {
  protected:
    Loader() {
        wire.pedal.setListener([this](BusChange change) {
            const char* const what = change == BusChange::arrived ? "arrived"
                                     : change == BusChange::left  ? "left"
                                                                  : "reset";
            changes.push_back(std::string(what) + "@" + std::to_string(wire.executor.elapsed() / 1ms));
        });
    }

    static Bytes imageOf(const std::string& text, std::size_t length = 200'000) {
        Bytes image = noise(length);
        std::copy(text.begin(), text.end(), image.end() - static_cast<std::ptrdiff_t>(text.size()));
        return image;
    }
    static Bytes trailerOf(const Bytes& image) {
        Bytes trailer(4);
        storeU32(trailer, 0, static_cast<std::uint32_t>(image.size()));
        const auto digest = SHA256(image);
        trailer.insert(trailer.end(), digest->begin(), digest->end());
        return trailer;
    }
    void enterLoader() {
        ASSERT_TRUE(wire.control(0xE4).accepted());
        wire.executor.advance(1600ms);
        ASSERT_EQ(wire.stage(), 'b');
    }
    /// As a correct program flashes a pedal that is in its loader.
    void flash(const Bytes& image, const Bytes& trailer) {
        ASSERT_TRUE(wire.control(0xE4).accepted());
        wire.executor.advance(8s);
        for (ByteView rest = image; !rest.empty();) {
            const auto piece = rest.first(std::min<std::size_t>(rest.size(), 65'536));
            ASSERT_EQ(wire.write(piece).transferred, piece.size());
            rest = rest.subspan(piece.size());
        }
        wire.executor.advance(1s);
        ASSERT_TRUE(wire.control(0xE5).accepted());
        ASSERT_EQ(wire.write(trailer).transferred, 36U);
    }

    Wire wire{{.memory = {StoredLoop{noise(600)}}}};
    std::vector<std::string> changes;
};

TEST_F(Loader, InstallsOnlyAnImageThatMatchesAcrossTwoRestarts) {
    enterLoader();
    EXPECT_THAT(changes, ElementsAre("left@100", "arrived@1600"));
    EXPECT_TRUE(wire.control(0xE1, 0, 1).refused());
    EXPECT_TRUE(wire.control(0xE2, 0, 1).refused());
    EXPECT_TRUE(wire.control(0xED, 0).refused());
    EXPECT_EQ(wire.control(0xEB, 1, 0, 60).bytes, Bytes(60));

    const Bytes image = imageOf("7306 firmware 1.06");
    Bytes wrongLength = trailerOf(image);
    wrongLength[0] ^= 1;
    Bytes wrongDigest = trailerOf(image);
    wrongDigest[35] ^= 1;
    for (const Bytes& trailer : {wrongLength, wrongDigest}) {
        flash(image, trailer);
        wire.executor.advance(5s);
        EXPECT_EQ(wire.stage(), 'b');
        EXPECT_TRUE(wire.pedal.firmwareRejected());
        EXPECT_FALSE(wire.pedal.installedFirmware());
        ASSERT_TRUE(wire.control(0xE7).accepted());
    }
    wire.pedal.unplug();
    wire.pedal.plugIn();
    ASSERT_EQ(wire.stage(), 'b') << "the cable does not cure it";

    flash(image, trailerOf(image));
    EXPECT_FALSE(wire.pedal.firmwareRejected());
    EXPECT_EQ(wire.pedal.installedFirmware(), image);
    wire.executor.advance(100ms);
    EXPECT_FALSE(wire.pedal.isPlugged());
    wire.executor.advance(1500ms);
    EXPECT_EQ(wire.stage(), 'p');
    const Reply capacity = wire.control(0xEA);
    EXPECT_EQ(std::string(capacity.bytes.begin() + 4, capacity.bytes.end()), "1.06");
    EXPECT_TRUE(wire.pedal.memory()[0]);
    EXPECT_THAT(wire.pedal.violations(), IsEmpty());
}

TEST_F(Loader, ComplainsOfHaste) {
    enterLoader();
    wire.control(0xE4);
    wire.executor.advance(7999ms);
    wire.write(noise(100));
    wire.executor.advance(999ms);
    wire.control(0xE5);
    wire.write(noise(35));
    EXPECT_THAT(wire.pedal.violations(), ElementsAre(HasSubstr("less than 8 s"), HasSubstr("less than 1 s"),
                                                     HasSubstr("trailer of 35")));
    wire.pedal.reset();
    EXPECT_EQ(wire.write(noise(1)).status, TransferStatus::stalled) << "a reset ends the update";
}

TEST_F(Loader, ReturnsOnlyToTheCable) {
    wire.control(0xE4);
    wire.executor.advance(200ms);
    wire.pedal.unplug();
    wire.executor.advance(1min);
    EXPECT_FALSE(wire.pedal.isPlugged()) << "somebody pulled the cable meanwhile";

    wire.pedal.plugIn();
    wire.pedal.setStage('p');
    wire.control(0xE4);
    wire.pedal.unplug();
    wire.pedal.plugIn();
    wire.executor.advance(50ms);
    EXPECT_EQ(wire.stage(), 'b');
    changes.clear();
    wire.executor.advance(1min);
    EXPECT_THAT(changes, IsEmpty()) << "the restart that the cable overtook does not happen again";
}

TEST(SimulatedPedalLife, MayEndBeforeItsRestart) {
    test::VirtualExecutor executor;
    auto pedal = std::make_unique<SimulatedPedal>(executor, SimulatedPedal::Start{});
    pedal->plugIn();
    Bytes reply(8);
    pedal->control({0xE4, pedalRequest, 1, 0, 8}, reply);
    bool left = false;
    pedal->setListener([&left](BusChange) { left = true; });
    pedal.reset();
    executor.advance(2s);
    EXPECT_FALSE(left);
}

}  // namespace
}  // namespace kzq::simulator
