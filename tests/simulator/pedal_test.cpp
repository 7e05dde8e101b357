// What the model answers to a correct program.

#include "loops/facts.h"
#include "wire.h"

namespace kzq::simulator {
namespace {

TEST(SimulatedPedal, TellsItsStateAndItsLoops) {
    SimulatedPedal::Start start;
    start.version = "2.07";
    start.memory[0] = StoredLoop{noise(6), 90, 255};
    start.memory[12] = StoredLoop{noise(420'000), 1, 2};
    Wire wire(std::move(start));
    wire.pedal.setSequence(7);

    const Reply capacity = wire.control(0xEA);
    EXPECT_EQ(loadU32(capacity.bytes), capacityFrames - 70'001);
    EXPECT_EQ(std::string(capacity.bytes.begin() + 4, capacity.bytes.end()), "2.07");
    EXPECT_EQ(wire.stage(), 'p');

    Bytes first(60);
    first[0] = 1;
    first[4] = 90;
    first[5] = 255;
    EXPECT_EQ(wire.control(0xEB, 1, 0, 60).bytes, first);
    Bytes last(60);
    storeU32(last, 12, 70'000);
    last[16] = 1;
    last[17] = 2;
    EXPECT_EQ(wire.control(0xEC, 1, 0, 60).bytes, last);

    EXPECT_TRUE(wire.control(0xE8).accepted());
    wire.pedal.setBusy(true);
    const Reply busy = wire.control(0xE8);
    EXPECT_TRUE(busy.refused());
    EXPECT_EQ(busy.bytes[sequenceOffset], 7);
    EXPECT_THAT(wire.pedal.violations(), IsEmpty());
}

TEST(SimulatedPedal, SendsALoopPaddedToBlocks) {
    SimulatedPedal::Start start;
    const Bytes audio = noise(1026);
    start.memory[4] = StoredLoop{audio, 120, 2};
    Wire wire(std::move(start));

    EXPECT_TRUE(wire.control(0xE1, 3, 2).refused()) << "an empty slot";
    EXPECT_TRUE(wire.control(0xE1, 4, 1).refused()) << "another channel";
    ASSERT_TRUE(wire.control(0xE1, 4, 2).accepted());
    const Reply head = wire.read(1024);
    EXPECT_EQ(head.bytes, Bytes(audio.begin(), audio.begin() + 1024));
    Bytes tail(64);
    std::copy(audio.begin() + 1024, audio.end(), tail.begin());
    EXPECT_EQ(wire.read(64).bytes, tail);
    EXPECT_THAT(wire.pedal.violations(), IsEmpty());
    EXPECT_EQ(wire.read(64).status, TransferStatus::pending) << "nothing is left";
}

TEST(SimulatedPedal, StoresALoopWhenAllOfItHasCome) {
    SimulatedPedal::Start start;
    start.memory[19] = StoredLoop{noise(12), 90, 5};
    Wire wire(std::move(start));
    std::vector<std::string> heard;
    wire.pedal.setMemoryListener([&](std::uint8_t address, const StoredLoop* loop) {
        heard.push_back(std::to_string(address) + (loop == nullptr ? " empty" : " stored"));
    });
    const Bytes audio = noise(70'002, 3);

    ASSERT_TRUE(wire.announce(19, true, audio.size()));
    EXPECT_TRUE(wire.pedal.memory()[19]) << "the old loop stays until audio comes";
    ASSERT_TRUE(wire.send(ByteView(audio).first(70'001)));
    EXPECT_FALSE(wire.pedal.memory()[19]) << "neither the old loop nor part of the new one";
    EXPECT_THAT(heard, ElementsAre("19 empty"));
    ASSERT_TRUE(wire.send(ByteView(audio).last(1)));
    EXPECT_EQ(wire.pedal.memory()[19], (StoredLoop{audio, 120, 1}));
    EXPECT_THAT(heard, ElementsAre("19 empty", "19 stored"));

    ASSERT_TRUE(wire.announce(0, false, 13));
    ASSERT_TRUE(wire.send(noise(13)));
    EXPECT_EQ(wire.pedal.memory()[0]->audio, noise(12)) << "a part of a frame is no audio";
    EXPECT_THAT(wire.pedal.violations(), IsEmpty());
}

TEST(SimulatedPedal, RefusesWhatDoesNotFit) {
    Wire wire;
    const auto frames = [](std::size_t n) { return StoredLoop{Bytes(n * frameBytes)}; };
    wire.pedal.setLoop(0, frames(1000));
    wire.pedal.setLoop(1, frames(500));
    const std::size_t room = (std::size_t{capacityFrames} - 500) * frameBytes;
    EXPECT_TRUE(wire.announce(0, true, room)) << "the loop that is written over makes room";
    EXPECT_FALSE(wire.announce(0, true, room + 1));
    EXPECT_FALSE(wire.announce(2, false, room));
    EXPECT_EQ(wire.pedal.memory()[0], frames(1000));
    EXPECT_THAT(wire.pedal.violations(), IsEmpty());
}

TEST(SimulatedPedal, DropsAnUnfinishedStream) {
    SimulatedPedal::Start start;
    start.memory[0] = StoredLoop{noise(3000)};
    start.memory[1] = StoredLoop{noise(3000, 2)};
    Wire wire(std::move(start));
    ASSERT_TRUE(wire.control(0xE1, 0, 1).accepted());
    wire.read(1024);
    ASSERT_TRUE(wire.control(0xE1, 1, 1).accepted());
    EXPECT_EQ(wire.read(6).bytes, noise(6, 2)) << "the new loop from its start";

    ASSERT_TRUE(wire.announce(5, false, 2000));
    wire.write(noise(1000));
    ASSERT_TRUE(wire.announce(6, false, 6));
    ASSERT_TRUE(wire.send(noise(6)));
    EXPECT_FALSE(wire.pedal.memory()[5]);
    EXPECT_TRUE(wire.pedal.memory()[6]);
    EXPECT_THAT(wire.pedal.violations(), IsEmpty()) << "a program goes on after a loop that failed";

    const std::vector<std::function<void()>> ends{[&] { wire.pedal.reset(); }, [&] { wire.control(0xEF); }};
    for (const auto& end : ends) {
        ASSERT_TRUE(wire.announce(7, false, 2000));
        end();
        EXPECT_EQ(wire.write(noise(1000)).status, TransferStatus::stalled);
        ASSERT_TRUE(wire.control(0xE1, 0, 1).accepted());
        end();
        EXPECT_EQ(wire.read(64).status, TransferStatus::pending);
        wire.pedal.reset();
    }
    EXPECT_TRUE(wire.pedal.isPlugged());
    EXPECT_EQ(wire.pedal.memory()[0], (StoredLoop{noise(3000)}));
}

}  // namespace
}  // namespace kzq::simulator
