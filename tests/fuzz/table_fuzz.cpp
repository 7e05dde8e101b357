// Feeds hostile replies to the readers of the pedal's answers and compares its loop table with a naive
// reading.

#include <algorithm>

#include "ctl/speech/format.h"
#include "device/replies.h"
#include "device/wire.h"
#include "fuzz_check.h"

namespace {

void checkRecord(const kzq::Loops& loops, kzq::ByteView record, std::uint8_t address) {
    const auto* const loop = loops.find(*kzq::SlotNumber::of(address + 1U));
    const std::uint64_t samples = record[0] + (std::uint64_t{record[1]} << 8U) +
                                  (std::uint64_t{record[2]} << 16U) + (std::uint64_t{record[3]} << 24U);
    require((loop != nullptr) == (samples != 0 && record[4] != 0 && record[5] != 0),
            "a zero is an empty slot");
    if (loop != nullptr) {
        require(loop->address == address && loop->samples == samples && loop->tempo == record[4] &&
                    loop->channel == record[5],
                "a loop is what its record says");
        require(loop->alignedBytes % 64 == 0 && loop->alignedBytes - loop->bytes < 64, "padded to 64 bytes");
        require(!kzq::hasPossibleLength(*loop) || loop->bytes == samples * 6, "what can be does not wrap");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t size) {
    constexpr std::size_t half = kzq::wire::tableLength;
    kzq::Bytes replies(input, input + size);
    replies.resize(2 * half + kzq::replyLength);
    const kzq::ByteView all(replies);
    kzq::Loops loops;
    kzq::addLoops(loops, all.first(half), 0);
    kzq::addLoops(loops, all.subspan(half, half), kzq::recordsInReply);
    for (std::uint8_t address = 0; address < kzq::loopSlots; ++address) {
        checkRecord(loops, all.subspan(address * kzq::loopRecordLength, kzq::loopRecordLength), address);
    }
    require(kzq::ctl::freeFrames(loops) <= kzq::capacityFrames, "no more is free than there is");
    const auto capacity = kzq::capacityIn(all.last(kzq::replyLength));
    require(!capacity || capacity->version.size() == 4, "a version has four characters");
    require(!capacity || std::ranges::all_of(kzq::ctl::printable(capacity->version),
                                             [](char c) { return c >= ' ' && c <= '~'; }),
            "no version changes a terminal");
    return 0;
}
