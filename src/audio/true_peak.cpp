#include "audio/true_peak.h"

#include <algorithm>

#include "loops/facts.h"

namespace kzq {
namespace {

constexpr unsigned channels = 2;

}  // namespace

ebur128_state* TruePeak::fresh() {
    return ebur128_init(channels, framesPerSecond, EBUR128_MODE_TRUE_PEAK);
}

void TruePeak::add(const std::vector<double>& samples) {
    if (state_ && ebur128_add_frames_double(state_.get(), samples.data(), samples.size() / channels) != 0) {
        state_.reset();
    }
}

double TruePeak::peak() const {
    double highest = 0;
    for (unsigned channel = 0; state_ && channel < channels; ++channel) {
        double peak = 0;
        ebur128_true_peak(state_.get(), channel, &peak);
        highest = std::max(highest, peak);
    }
    return highest;
}

}  // namespace kzq
