#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "ctl/speech/output.h"
#include "device/kzq7306.h"

namespace kzq::ctl {

/// One installation of firmware as the link reports it: when the pedal leaves, what it returns as,
/// and whether the image and its trailer went out.
class FirmwareFlash : public std::enable_shared_from_this<FirmwareFlash> {
  public:
    struct News {
        std::optional<bool> accepted;    ///< whether the link takes the image at all
        bool away = false;               ///< the pedal has left the bus and is not back
        unsigned departures = 0;         ///< how often it has left the bus
        std::optional<char> returned;    ///< stage at its last return; forgotten at completion
        std::optional<bool> completed;   ///< whether image and trailer went out
        std::optional<Trouble> trouble;  ///< why not
        std::optional<std::string> version;
        bool stopWanted = false;  ///< the user wants an end as soon as there can be one
    };
    using Ready = std::function<bool(const News&)>;

    FirmwareFlash(Executor& executor, Output& output) : executor_(executor), output_(output) {}

    // --- main thread

    /// The pedal's way to its loader and back, once the work is under way: false before.
    bool disconnected();
    bool connected(const KZQ7306& looper);

    // --- the command's thread

    /// False when `ended` says that there is no pedal to work with any more.
    bool begin(const std::function<bool()>& ended);
    /// Hands the image to the link, which asks the pedal first.
    void send(const std::shared_ptr<KZQ7306>& looper, std::vector<std::uint8_t> image);
    void askVersion(const std::shared_ptr<KZQ7306>& looper);
    /// Waits until `ready`, for `limit` of this program's own running time (0: for ever). Shows `what` with
    /// the seconds meanwhile.
    bool await(const std::string& what, Executor::Duration limit, const Ready& ready);
    News news() const;

    // --- any thread

    /// False when nothing is under way that would have to come to its end first.
    bool wantStop();
    /// From here on only the work itself ends the program, since its exit code says what became of the
    /// pedal.
    bool begun() const;
    /// Begun, and the image is not complete.
    bool underWay() const;

  private:
    void complete(const KZQ7306& looper, bool flashed);

    Executor& executor_;
    Output& output_;
    mutable std::mutex mutex_;  ///< guards what follows
    bool begun_ = false;
    News news_;
};

}  // namespace kzq::ctl
