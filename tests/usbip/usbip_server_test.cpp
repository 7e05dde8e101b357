#include "device/simulator/usbip/usbip_server.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "import_client.h"
#include "virtual_executor.h"

namespace kzq::simulator::usbip {
namespace {

using testing::IsEmpty;

constexpr int busy = 2;
constexpr int noDevice = 4;
constexpr int stalled = -32;
constexpr int tooLong = -75;
constexpr int cameShort = -121;
constexpr int connectionReset = -104;

constexpr std::size_t loopBytes = 6 * 171;

class UsbipServerTest : public testing::Test {
  protected:
    UsbipServerTest() {
        std::string error;
        place_ = server_.listen("127.0.0.1:0", error);
        EXPECT_THAT(error, IsEmpty());
        pedal_.plugIn();
    }

    static PedalMemory oneLoop() {
        StoredLoop loop{ImportClient::Bytes(loopBytes), 120, 255};
        for (std::size_t i = 0; i < loop.audio.size(); ++i) {
            loop.audio[i] = static_cast<std::uint8_t>(i * 31 + i / 255);
        }
        PedalMemory memory;
        memory[3] = loop;
        return memory;
    }

    test::VirtualExecutor clock_;
    SimulatedPedal pedal_{clock_, {.memory = oneLoop()}};
    int arrivals_ = 0;
    PedalBus bus_{pedal_, [this] { ++arrivals_; }};
    UsbipServer server_{bus_};
    std::string place_;
};

TEST_F(UsbipServerTest, BelongsToOneComputerUntilThatHangsUp) {
    ImportClient first(place_);
    EXPECT_EQ(first.import("1-2"), noDevice);
    auto second = std::make_unique<ImportClient>(place_);
    ASSERT_EQ(second->import(), 0);
    EXPECT_EQ(second->record.size(), 312);
    EXPECT_EQ(ImportClient(place_).import(), busy);
    EXPECT_EQ(second->command(0xE9).data.at(stageOffset), 'p');

    second->submit(7, false, 0xFFFFFFFF);  // more than there can be: no computer, or a broken one
    EXPECT_TRUE(second->atEnd());
    ImportClient third(place_);
    while (third.import() == busy) {
        third = ImportClient(place_);
    }
    EXPECT_EQ(third.command(0xE9).data.at(stageOffset), 'p');
}

TEST_F(UsbipServerTest, CarriesLoopsBothWays) {
    ImportClient client(place_);
    ASSERT_EQ(client.import(), 0);
    client.control(0x00, 9, 1, 0, 0);
    EXPECT_EQ(client.command(0xE1, 3, 255).data.at(answerOffset), 'Y');
    client.submit(1, true, 1024);
    client.submit(1, true, 64);
    auto loop = client.answer(true).data;
    const auto rest = client.answer(true);
    EXPECT_EQ(rest.status, 0);
    loop.insert(loop.end(), rest.data.begin(), rest.data.end());
    loop.resize(loopBytes);
    EXPECT_EQ(loop, pedal_.memory()[3]->audio);

    client.command(0xE2, 5, 0);
    client.command(0xE3, 6 * 171, 0);
    client.submit(2, false, 1024, ImportClient::Bytes(8), {loop.begin(), loop.begin() + 1024});
    EXPECT_EQ(client.answer(false).length, 1024);
    client.submit(2, false, 2, ImportClient::Bytes(8), {loop.begin() + 1024, loop.end()});
    EXPECT_EQ(client.answer(false).length, 2);
    EXPECT_EQ(pedal_.memory()[5]->audio, loop);
    client.submit(5, true, 8);
    EXPECT_EQ(client.answer(true).status, stalled) << "no such endpoint";
    EXPECT_THAT(pedal_.violations(), IsEmpty());
}

TEST_F(UsbipServerTest, TransfersWaitInTurnAndCanBeTakenBack) {
    ImportClient client(place_);
    ASSERT_EQ(client.import(), 0);
    const auto forgotten = client.submit(1, true, 64);
    const auto first = client.submit(1, true, 64);
    const auto second = client.submit(1, true, 64);
    const auto unlinking = client.unlink(forgotten);
    const auto unlinked = client.answer(false);
    EXPECT_EQ(unlinked.command, 4);
    EXPECT_EQ(unlinked.number, unlinking);
    EXPECT_EQ(unlinked.status, connectionReset);

    client.submit(0, true, 8, {0xE1, 0x2A, 3, 0, 255, 0, 8, 0});
    EXPECT_EQ(client.answer(true).length, 8) << "the command overtakes the reads that wait for its data";
    const auto audio = pedal_.memory()[3]->audio;
    const auto piece = client.answer(true);
    EXPECT_EQ(piece.number, first);
    EXPECT_EQ(piece.data, ImportClient::Bytes(audio.begin(), audio.begin() + 64));
    EXPECT_EQ(client.answer(true).number, second);
    client.unlink(first);
    EXPECT_EQ(client.answer(false).status, 0) << "it was over";
}

TEST_F(UsbipServerTest, FaultsReachTheComputerAsItsOwnErrors) {
    ImportClient client(place_);
    ASSERT_EQ(client.import(), 0);
    const auto plan = [this](const char* text) { pedal_.plan(*faultFromText(text)); };
    plan("stall@E9");
    EXPECT_EQ(client.command(0xE9).status, stalled);
    client.command(0xE1, 3, 255);
    plan("shorten@in");
    client.submit(1, true, 64);
    EXPECT_EQ(client.answer(true).length, 32);
    plan("shorten@in");
    client.submit(1, true, 64, ImportClient::Bytes(8), {}, 1);
    EXPECT_EQ(client.answer(true).status, cameShort);
    plan("overrun@in");
    client.submit(1, true, 64);
    const auto overrun = client.answer(true);
    EXPECT_EQ(overrun.status, tooLong);
    EXPECT_EQ(overrun.length, 64);

    plan("unplug@in");
    client.submit(1, true, 64);
    EXPECT_TRUE(client.atEnd());
    pedal_.plugIn();
    EXPECT_EQ(arrivals_, 2);
    EXPECT_EQ(ImportClient(place_).import(), 0);
}

}  // namespace
}  // namespace kzq::simulator::usbip
