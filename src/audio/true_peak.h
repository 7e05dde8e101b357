#pragma once

#include <ebur128.h>

#include <memory>
#include <vector>

namespace kzq {

/// The peak of a recording, also between its samples, as ITU-R BS.1770 measures it; by libebur128.
class TruePeak {
  public:
    /// Interleaved samples, whole frames of two channels at the pedal's rate.
    void add(const std::vector<double>& samples);
    /// Of full scale; 0 if there was no memory to measure it.
    double peak() const;

  private:
    struct Free {
        void operator()(ebur128_state* state) const { ebur128_destroy(&state); }
    };

    static ebur128_state* fresh();

    std::unique_ptr<ebur128_state, Free> state_{fresh()};
};

}  // namespace kzq
