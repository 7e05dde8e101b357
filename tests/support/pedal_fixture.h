#pragma once

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "audio/wave.h"
#include "device_fixture.h"
#include "paced_port.h"

namespace kzq::test {

using simulator::FaultKind;
using simulator::PedalMemory;
using simulator::SimulatedPedal;
using simulator::SimulatedPort;
using simulator::StoredLoop;
using simulator::WireEvent;
using Where = simulator::Fault::Where;

/// `frames` frames without repetition.
inline Bytes noise(std::size_t frames, std::uint32_t seed) {
    Bytes audio(frames * 6);
    std::generate(audio.begin(), audio.end(), [&seed] {
        seed = seed * 1664525U + 1013904223U;
        return static_cast<std::uint8_t>(seed >> 24U);
    });
    return audio;
}

/// The device link, connected to a simulated pedal with loops in slots 1, 3, 10, 11 and 20. In every
/// test, the program must not send anything that a correct one never sends.
class PedalTest : public DeviceLinkTest {
  protected:
    PedalTest() : pedal(executor, {memory(), "1.05", stageNormal}) {
        load(port);
        pedal.plugIn();
        start();
        pedal.clearJournal();
    }
    void TearDown() override {
        EXPECT_THAT(pedal.violations(), IsEmpty());
        DeviceLinkTest::TearDown();
    }

    static PedalMemory memory() {
        PedalMemory loops;
        loops[0] = StoredLoop{noise(1, 1), 90, 1};      // 6 bytes, 64 on the wire
        loops[2] = StoredLoop{noise(1000, 2), 120, 2};  // 6000 bytes, 6016 on the wire
        loops[9] = StoredLoop{noise(512, 3), 1, 255};   // 3072 bytes: no padding, whole pieces
        loops[10] = StoredLoop{noise(44100, 4), 255, 1};
        loops[19] = StoredLoop{noise(171, 5), 60, 7};  // 1026 bytes, 1088 on the wire
        return loops;
    }

    /// The wire since the journal was cleared: "E1 19 7", "in 1024", "out 6", "reset", "unplugged",
    /// "plugged".
    std::vector<std::string> wire() const {
        std::vector<std::string> texts;
        for (const auto& event : pedal.journal()) {
            texts.push_back(text(event));
        }
        return texts;
    }
    /// The same without the queries: stage, version, loop table and whether the pedal is busy.
    std::vector<std::string> actions() const {
        auto texts = wire();
        const auto query = [](const std::string& text) {
            return text == "E8 1 0" || text == "E9 1 0" || text == "EA 1 0" || text == "EB 1 0" ||
                   text == "EC 1 0";
        };
        texts.erase(std::remove_if(texts.begin(), texts.end(), query), texts.end());
        return texts;
    }

    static std::string text(const WireEvent& event) {
        switch (event.kind) {
            case WireEvent::Kind::control: {
                std::array<char, 32> text{};
                std::snprintf(text.data(), text.size(), "%02X %u %u", event.code, event.value, event.index);
                return text.data();
            }
            case WireEvent::Kind::bulkIn:
                return "in " + std::to_string(event.length);
            case WireEvent::Kind::bulkOut:
                return "out " + std::to_string(event.length);
            case WireEvent::Kind::reset:
                return "reset";
            case WireEvent::Kind::plugged:
                return "plugged";
            case WireEvent::Kind::unplugged:
                return "unplugged";
        }
        return "?";
    }

    SimulatedPedal pedal;
    PacedPort port{executor, pedal};
    std::uint32_t cancelAt = ~0U;  ///< a batch's total at which its progress callback cancels it
};

}  // namespace kzq::test
