#include "sound_analysis.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "loops/facts.h"

namespace kzq {
namespace {

/// One side of stereo samples, without a sixteenth at each end.
std::vector<double> middle(const Samples& samples, std::size_t side) {
    const std::size_t frames = samples.size() / 2;
    const std::size_t edge = frames / 16;
    std::vector<double> values;
    for (std::size_t i = edge; i < frames - edge; ++i) {
        values.push_back(samples[2 * i + side] / fullScale);
    }
    return values;
}

double power(const std::vector<double>& values) {
    double sum = 0;
    for (const double value : values) {
        sum += value * value;
    }
    return sum / static_cast<double>(values.size());
}

double decibels(double ratio) {
    return 10 * std::log10(std::max(ratio, 1e-30));
}

/// Solves the 3 equations of a least-squares fit, which are symmetric and well conditioned.
std::array<double, 3> solved(std::array<std::array<double, 4>, 3> rows) {
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
            if (i == j) {
                continue;
            }
            const double factor = rows[j][i] / rows[i][i];
            for (std::size_t k = i; k < 4; ++k) {
                rows[j][k] -= factor * rows[i][k];
            }
        }
    }
    return {rows[0][3] / rows[0][0], rows[1][3] / rows[1][1], rows[2][3] / rows[2][2]};
}

}  // namespace

double residueBelowTone(const Samples& samples, double frequency, std::size_t side) {
    auto values = middle(samples, side);
    const double step = 2 * M_PI * frequency / framesPerSecond;
    const auto basis = [&](std::size_t i) {
        const double phase = step * static_cast<double>(i);
        return std::array<double, 3>{std::sin(phase), std::cos(phase), 1};
    };
    std::array<std::array<double, 4>, 3> rows{};
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto terms = basis(i);
        for (std::size_t j = 0; j < 3; ++j) {
            for (std::size_t k = 0; k < 3; ++k) {
                rows[j][k] += terms[j] * terms[k];
            }
            rows[j][3] += terms[j] * values[i];
        }
    }
    // The constant part is fitted too, and so not counted as noise.
    const auto [sinePart, cosinePart, constant] = solved(rows);
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto terms = basis(i);
        values[i] -= sinePart * terms[0] + cosinePart * terms[1] + constant;
    }
    return decibels(power(values) / ((sinePart * sinePart + cosinePart * cosinePart) / 2));
}

double level(const Samples& samples, std::size_t side) {
    return decibels(power(middle(samples, side)) * 2);
}

double differenceLevel(const Samples& samples, const Samples& expected) {
    double left = 0;
    double whole = 0;
    for (std::size_t i = 0; i < std::min(samples.size(), expected.size()); ++i) {
        const double difference = samples[i] - expected[i];
        left += difference * difference;
        whole += static_cast<double>(expected[i]) * expected[i];
    }
    return decibels(left / std::max(whole, 1.0));
}

}  // namespace kzq
