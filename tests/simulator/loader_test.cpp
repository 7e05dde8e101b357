// The loader, arrival and departure.

#include "platform/digest.h"
#include "wire.h"

namespace kzq::simulator {
namespace {

class Loader : public testing::Test {
  protected:
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
};

TEST_F(Loader, InstallsOnlyAnImageThatMatchesAcrossTwoRestarts) {
    enterLoader();
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

}  // namespace
}  // namespace kzq::simulator
