// Everything that a correct program never sends is recorded.

#include "wire.h"

namespace kzq::simulator {
namespace {

struct Offence {
    std::string text;
    std::function<void(Wire&)> commit;
};

const std::vector<Offence> offences{
    {"no command E6", [](Wire& w) { EXPECT_EQ(w.control(0xE6).status, TransferStatus::stalled); }},
    {"E8 with a wrong bRequest", [](Wire& w) { EXPECT_TRUE(w.control(0xE8, 1, 0, 8, 0x2B).accepted()); }},
    {"ED with the address 20", [](Wire& w) { EXPECT_TRUE(w.control(0xED, 20).refused()); }},
    {"E1 with the channel 0", [](Wire& w) { EXPECT_TRUE(w.control(0xE1, 0, 0).refused()); }},
    {"E2 with the flag 1 for a slot that is empty", [](Wire& w) { w.control(0xE2, 1, 1); }},
    {"E2 with the flag 0 for a slot that holds a loop", [](Wire& w) { w.control(0xE2, 0, 0); }},
    {"E3 without E2", [](Wire& w) { EXPECT_TRUE(w.control(0xE3, 6, 0).refused()); }},
    {"a bulk read without a loop", [](Wire& w) { w.read(64); }},
    {"a bulk write that was not announced",
     [](Wire& w) { EXPECT_EQ(w.write(noise(6)).status, TransferStatus::stalled); }},
    {"a piece of 1025 bytes",
     [](Wire& w) {
         w.control(0xE1, 0, 1);
         EXPECT_EQ(w.read(1025).length, 1025U);
     }},
    {"more bytes than the 6 that are due",
     [](Wire& w) {
         w.announce(1, false, 6);
         EXPECT_EQ(w.write(noise(7)).transferred, 6U);
     }},
    {"E8 less than 25 ms after an erase",
     [](Wire& w) {
         w.control(0xED, 5);
         w.executor.advance(24ms);
         w.control(0xE8);
     }},
    {"E9 while audio is due",
     [](Wire& w) {
         w.control(0xEB, 1, 0, wire::tableLength);
         w.control(0xE1, 0, 1);
         w.control(0xE9);
     }},
    {"E8 in the middle of an update",
     [](Wire& w) {
         w.pedal.setStage('b');
         w.control(0xE4);
         w.control(0xE8);
     }},
    {"a trailer is announced without an image", [](Wire& w) { EXPECT_TRUE(w.control(0xE5).refused()); }},
};

TEST(Violations, EachIsRecordedOnceWithItsEvent) {
    for (const Offence& offence : offences) {
        SCOPED_TRACE(offence.text);
        Wire wire({.memory = {StoredLoop{noise(6000)}, std::nullopt, StoredLoop{noise(6)}}});
        offence.commit(wire);
        const std::string event = "event " + std::to_string(wire.pedal.journal().size()) + ": ";
        EXPECT_THAT(wire.pedal.violations(),
                    ElementsAre(testing::AllOf(testing::StartsWith(event), HasSubstr(offence.text))));
    }
}

TEST(Violations, OfOrderAreExcusedAfterASwallowedCommand) {
    Wire wire({.memory = {StoredLoop{noise(6)}}});
    wire.pedal.plan({.kind = FaultKind::stall, .code = 0xE1});
    EXPECT_EQ(wire.control(0xE1, 0, 1).status, TransferStatus::stalled);
    EXPECT_EQ(wire.read(64).status, TransferStatus::pending) << "the program cannot know that 0xE1 was lost";
    EXPECT_THAT(wire.pedal.violations(), IsEmpty());

    wire.pedal.reset();
    wire.read(64);
    EXPECT_EQ(wire.pedal.violations().size(), 1U) << "but after the reset it does";
}

}  // namespace
}  // namespace kzq::simulator
