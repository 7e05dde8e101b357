#include "device/simulator/usbip/usbip_server.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "device/simulator/usbip/kernel_port.h"
#include "import_client.h"
#include "virtual_executor.h"

namespace kzq::simulator::usbip {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
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

TEST_F(UsbipServerTest, ListsThePedalWhileItIsThere) {
    const ImportClient::Bytes question{0x01, 0x11, 0x80, 0x05, 0, 0, 0, 0};
    ImportClient there(place_);
    there.send(question);
    EXPECT_THAT(there.receive(12), ElementsAre(0x01, 0x11, 0x00, 0x05, 0, 0, 0, 0, 0, 0, 0, 1));
    const auto record = there.receive(312 + 4);
    ASSERT_EQ(record.size(), 316);
    EXPECT_STREQ(reinterpret_cast<const char*>(record.data() + 256), "1-1");
    EXPECT_THAT(ImportClient::Bytes(record.begin() + 288, record.end()),
                ElementsAre(0, 0, 0, 1, 0, 0, 0, 2, 0, 0, 0, 3, 0x30, 0x8A, 0x01, 0x04, 0x01, 0x00, 0, 0, 0,
                            1, 1, 1, 0xFF, 0, 0, 0));
    EXPECT_TRUE(there.atEnd());

    pedal_.unplug();
    ImportClient empty(place_);
    empty.send(question);
    EXPECT_THAT(empty.receive(12), ElementsAre(0x01, 0x11, 0x00, 0x05, 0, 0, 0, 0, 0, 0, 0, 0));
    EXPECT_TRUE(empty.atEnd());
    EXPECT_EQ(ImportClient(place_).import(), noDevice);
}

TEST_F(UsbipServerTest, BelongsToOneComputerUntilThatHangsUp) {
    ImportClient first(place_);
    EXPECT_EQ(first.import("1-2"), noDevice);
    auto second = std::make_unique<ImportClient>(place_);
    ASSERT_EQ(second->import(), 0);
    EXPECT_EQ(second->record.size(), 312);
    EXPECT_EQ(ImportClient(place_).import(), busy);
    EXPECT_EQ(second->command(0xE9).data.at(stageOffset), 'p');

    ImportClient wrongVersion(place_);
    wrongVersion.send({0x01, 0x06, 0x80, 0x03, 0, 0, 0, 0});
    EXPECT_TRUE(wrongVersion.atEnd());

    second->submit(7, false, 0xFFFFFFFF);  // more than there can be: no computer, or a broken one
    EXPECT_TRUE(second->atEnd());
    ImportClient third(place_);
    while (third.import() == busy) {
        third = ImportClient(place_);
    }
    EXPECT_EQ(third.command(0xE9).data.at(stageOffset), 'p');
}

TEST_F(UsbipServerTest, AnswersWhatEveryDeviceIsAsked) {
    ImportClient client(place_);
    ASSERT_EQ(client.import(), 0);
    const auto device = client.control(0x80, 6, 0x0100, 0, 64);
    ASSERT_EQ(device.length, 18);
    EXPECT_THAT(ImportClient::Bytes(device.data.begin() + 7, device.data.begin() + 12),
                ElementsAre(64, 0x8A, 0x30, 0x04, 0x01));
    EXPECT_EQ(client.control(0x80, 6, 0x0200, 0, 9).length, 9);
    const auto configuration = client.control(0x80, 6, 0x0200, 0, 255);
    ASSERT_EQ(configuration.length, 32);
    EXPECT_THAT(ImportClient::Bytes(configuration.data.begin() + 9, configuration.data.end()),
                ElementsAre(9, 4, 0, 0, 2, 0xFF, 0, 0, 0, 7, 5, 0x81, 2, 0, 2, 0, 7, 5, 0x02, 2, 0, 2, 0));
    EXPECT_EQ(client.control(0x80, 6, 0x0600, 0, 10).status, stalled) << "no other speed";
    EXPECT_THAT(client.control(0x80, 8, 0, 0, 1).data, ElementsAre(0));
    EXPECT_EQ(client.control(0x00, 9, 2, 0, 0).status, stalled);
    EXPECT_EQ(client.control(0x00, 9, 1, 0, 0).status, 0);
    EXPECT_THAT(client.control(0x80, 8, 0, 0, 1).data, ElementsAre(1));
    EXPECT_THAT(client.control(0x82, 0, 0, 0x81, 2).data, ElementsAre(0, 0));
    EXPECT_EQ(client.control(0x02, 1, 0, 0x81, 0).status, 0);
    EXPECT_EQ(client.control(0x02, 1, 0, 0x83, 0).status, stalled) << "no such endpoint";
    EXPECT_EQ(client.control(0xA1, 7, 0, 0, 24).status, stalled) << "a question of a driver of another class";
    EXPECT_THAT(pedal_.violations(), IsEmpty()) << "none of these is the pedal's business";
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

    client.submit(1, true, 1024);
    client.answer(true);
    client.submit(1, true, 64);  // waits: all has been sent
    client.control(0x00, 9, 1, 0, 0);
    client.command(0xE1, 3, 255);
    EXPECT_EQ(client.answer(true).data.size(), 64) << "a reset of the port starts the stream anew";
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

TEST(KernelPort, TakesTheFirstFreePortOfTheRightSpeed) {
    constexpr auto status =
        "hub port sta spd dev      sockfd local_busid\n"
        "hs  0000 006 003 00010002 000003 1-1\n"
        "ss  0008 004 000 00000000 000000 0-0\n"
        "hs  0001 004 000 00000000 000000 0-0\n";
    EXPECT_EQ(freePort(status), 1);
    EXPECT_EQ(freePort("hub port sta\nhs  0000 006 003 00010002 000003 1-1\nss  0008 004 000 0 0 0-0\n"),
              std::nullopt);
    EXPECT_THAT(plugIntoKernel("/nowhere", 0, PedalBus::record()), HasSubstr("vhci-hcd"));
}

}  // namespace
}  // namespace kzq::simulator::usbip
