#pragma once

#include "ctl/pedal/environment.h"

namespace kzq::ctl {

/// How a command line names standard input and standard output.
inline constexpr const char* standardStream = "-";

/// Converts like the environment's converter, but from standard input and to standard output where the order
/// says "-"; inputLost, outputLost and noTemporaryFolder are then failures, too. Both go through a file in
/// the working folder, so that memory stays small and nothing is printed unless the whole conversion has
/// succeeded. What was printed has no path. Blocks.
class StreamConversion {
  public:
    /// Both outlive it.
    StreamConversion(const Environment& environment, const std::atomic<bool>& cancelled)
        : environment_(environment), cancelled_(cancelled) {}

    Result<ConvertedFile> convert(ConversionOrder order) const;

  private:
    /// Standard input goes into `file`.
    Result<void> store(const std::filesystem::path& file) const;
    Result<void> print(const std::filesystem::path& file) const;

    const Environment& environment_;
    const std::atomic<bool>& cancelled_;
};

}  // namespace kzq::ctl
