#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>

#include "listening/player.h"
#include "platform/fixed.h"

namespace kzq {

struct AppParts;

/// Plays the copies of the Bring Back panel, one at a time and beside no row of the window: whichever was
/// pressed last is heard. Main thread.
class CopySound : Fixed {
  public:
    /// What a copy's row shows of it.
    struct Shown {
        bool on = false;
        double position = -1;  ///< 0 to 1; below 0: nothing is heard yet
        Frames played = {};
    };
    using Show = std::function<void(std::size_t copy, const Shown& shown)>;

    /// `parts` outlives it. `show` is called with each change.
    CopySound(AppParts& parts, Show show);
    ~CopySound();

    /// Plays it, or stops it if it plays.
    void press(std::size_t copy, const std::filesystem::path& file, const std::string& name);
    void stop();

  private:
    struct Now;
    void begin(const std::string& name, std::shared_ptr<const Sound> sound);
    void follow();

    AppParts& parts_;
    const Show show_;
    std::unique_ptr<Player> player_;  ///< null without an output
    std::shared_ptr<Now> now_;        ///< what was pressed
};

}  // namespace kzq
