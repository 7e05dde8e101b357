#include "device/simulator/synthesiser.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "loops/facts.h"

namespace kzq::simulator {

namespace {

constexpr double rate = framesPerSecond;
constexpr double fullScale = 8'388'607.0;
constexpr std::size_t beatsOfBar = 4;

/// The chords' roots in semitones above the key, one per bar: I, VI, IV, V.
constexpr std::array<int, 4> progression{0, 9, 5, 7};

double pitch(int semitones) {
    return 55.0 * std::exp2(semitones / 12.0);
}

/// A sine with a period of 1, approximated by parabolas: cheap, and the same on every machine.
double hum(double phase) {
    const double x = 2.0 * (phase - std::floor(phase)) - 1.0;
    return 4.0 * x * (std::abs(x) - 1.0);
}

/// Noise from -1 to 1 that repeats itself with the same seed.
class Noise {
  public:
    explicit Noise(std::uint32_t seed) : state_(seed) {}
    double next() {
        state_ = state_ * 1'664'525U + 1'013'904'223U;
        return static_cast<double>(state_ >> 8) / 8'388'608.0 - 1.0;
    }

  private:
    std::uint32_t state_;
};

/// One beat of the piece and its notes.
struct Beat {
    double bass = 0;
    std::array<double, 3> chord{};
    bool isKick = false;

    Beat(std::uint8_t address, std::size_t number) {
        const int key = address * 5 % 12;
        const std::size_t bar = number / beatsOfBar;
        const int root = key + progression.at((bar + address) % progression.size());
        const int third = address % 2 == 0 ? 4 : 3;
        bass = pitch(root + (number % 2 == 0 ? 0 : 7));
        chord = {pitch(root + 24), pitch(root + 24 + third), pitch(root + 31)};
        isKick = number % 2 == 0;
    }
};

struct Frame {
    double left = 0;
    double right = 0;
};

/// `t` seconds into the beat, which lasts `length` seconds.
Frame frameAt(const Beat& beat, double t, double length, Noise& noise) {
    const double fade = std::min(1.0, std::min(t, length - t) * 200.0);  // no clicks between beats
    const double decay = 1.0 - t / length;
    const double bass = 0.30 * decay * hum(beat.bass * t);
    const double drumDecay = std::max(0.0, 1.0 - t * (beat.isKick ? 6.0 : 12.0));
    const double hit = beat.isKick ? hum((50.0 + 60.0 * drumDecay) * t) : noise.next();
    const double drum = 0.25 * drumDecay * drumDecay * hit;
    const double low = hum(beat.chord[0] * t);
    const double middle = hum(beat.chord[1] * t);
    const double high = hum(beat.chord[2] * t);
    const double centre = fade * (bass + drum + 0.06 * middle);
    return {centre + fade * 0.08 * low, centre + fade * 0.08 * high};
}

void append(Bytes& audio, double value) {
    const auto sample = static_cast<std::int32_t>(std::lround(std::clamp(value, -1.0, 1.0) * fullScale));
    const auto bits = static_cast<std::uint32_t>(sample);
    for (unsigned shift = 0; shift < 24; shift += 8) {
        audio.push_back(static_cast<std::uint8_t>(bits >> shift));
    }
}

}  // namespace

StoredLoop synthesiseLoop(std::uint8_t address, double seconds, std::uint8_t tempo) {
    StoredLoop loop;
    loop.tempo = std::max<std::uint8_t>(tempo, 1);
    const double beatLength = 60.0 / loop.tempo;
    const auto beats = static_cast<std::size_t>(std::max(1L, std::lround(seconds / beatLength)));
    const auto frames = static_cast<std::size_t>(std::lround(static_cast<double>(beats) * beatLength * rate));
    loop.audio.reserve(frames * frameBytes);
    Noise noise(address + 1U);
    std::size_t frame = 0;
    for (std::size_t number = 0; number < beats; ++number) {
        const Beat beat(address, number);
        const double start = static_cast<double>(number) * beatLength;
        const auto end = static_cast<std::size_t>(std::lround((start + beatLength) * rate));
        for (; frame < std::min(end, frames); ++frame) {
            const double t = static_cast<double>(frame) / rate - start;
            const auto [left, right] = frameAt(beat, t, beatLength, noise);
            append(loop.audio, left);
            append(loop.audio, right);
        }
    }
    return loop;
}

PedalMemory demonstrationMemory() {
    struct Piece {
        std::uint8_t slot;
        double seconds;
        std::uint8_t tempo;
        std::uint8_t channel;
    };
    constexpr std::array<Piece, 6> pieces{{{1, 4.0, 120, 1},
                                           {2, 8.0, 90, 2},
                                           {3, 2.0, 140, 255},
                                           {5, 6.0, 100, 1},
                                           {8, 12.0, 75, 2},
                                           {13, 3.0, 160, 7}}};
    PedalMemory memory;
    for (const Piece& piece : pieces) {
        const auto address = static_cast<std::uint8_t>(piece.slot - 1);
        auto& loop = memory.at(address);
        loop = synthesiseLoop(address, piece.seconds, piece.tempo);
        loop->channel = piece.channel;
    }
    return memory;
}

}  // namespace kzq::simulator
