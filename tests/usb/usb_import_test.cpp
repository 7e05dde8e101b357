#include <map>

#include "audio/wave.h"
#include "linked_pedal.h"

namespace kzq {
namespace {

using simulator::Fault;
using simulator::FaultKind;
using simulator::PedalMemory;
using simulator::StoredLoop;
using testing::ElementsAre;

StoredLoop loopOf(std::size_t frames, std::uint8_t channel) {
    StoredLoop loop{Bytes(frames * 6), 93, channel};
    std::uint32_t noise = 7306U + channel;
    for (auto& byte : loop.audio) {
        noise = noise * 1'664'525 + 1'013'904'223;
        byte = static_cast<std::uint8_t>(noise >> 24);
    }
    return loop;
}

PedalMemory memoryOfThree() {
    PedalMemory memory;
    memory[0] = loopOf(1, 1);
    memory[10] = loopOf(20'000, 2);
    memory[19] = loopOf(512, 3);  // whole pieces
    return memory;
}

class UsbImport : public LinkedPedalTest {
  protected:
    UsbImport() : LinkedPedalTest({.memory = memoryOfThree()}) {}

    void startImport(const std::vector<std::uint8_t>& slots) {
        imported_.clear();
        count_.reset();
        ASSERT_TRUE(looper().importLoops(
            slots, [](auto, auto) {},
            [this](const std::optional<Bytes>& file, std::uint8_t slot) {
                onMain([this, file, slot] { imported_[slot] = file; });
            },
            [this](std::uint8_t count) { onMain([this, count] { count_ = count; }); }));
    }
    bool runImport() {
        return runUntil([this] { return count_.has_value(); });
    }

    void expectImported(std::uint8_t slot) {
        ASSERT_TRUE(imported_[slot]) << "slot " << int{slot};
        const auto& file = *imported_[slot];
        EXPECT_TRUE(isPerfectWave(file, 2));
        EXPECT_EQ(lpcm(file), pedal_.memory().at(slot - 1U)->audio) << "slot " << int{slot};
    }

    std::map<std::uint8_t, std::optional<Bytes>> imported_;
    std::optional<std::uint8_t> count_;
};

TEST_F(UsbImport, ADepartureInMidReadEndsItAtOnceAndTheReturnIsAnnounced) {
    pedal_.plan(
        {.kind = FaultKind::silence, .where = Fault::Where::bulkIn, .code = std::nullopt, .count = 50});
    startImport({1, 11, 20});
    ASSERT_TRUE(bus_.waitUntilBlocked());
    pedal_.unplug();
    ASSERT_TRUE(runImport());
    EXPECT_EQ(count_, 1);
    expectImported(1);
    EXPECT_EQ(imported_[11], std::nullopt);
    EXPECT_EQ(imported_[20], std::nullopt);
    ASSERT_TRUE(waitUntilHeard(2));
    EXPECT_TRUE(looper().disconnected());

    pedal_.plugIn();
    ASSERT_TRUE(waitUntilHeard(3));
    EXPECT_THAT(delegate_.heard, ElementsAre("connected", "disconnected", "connected"));
    startImport({11});
    ASSERT_TRUE(runImport());
    expectImported(11);
}

}  // namespace
}  // namespace kzq
