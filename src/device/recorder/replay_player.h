#pragma once

#include <map>
#include <mutex>
#include <optional>
#include <string>

#include "device/recorder/replay_port.h"

namespace kzq::recorder {

/// What a replay port and its handles share: the place in the recording.
struct ReplayPort::Player {
    using Lock = std::unique_lock<std::mutex>;

    Player(Executor& theExecutor, Recording theRecording, Listener theListener);

    /// Matches a call with the recording; its number, or nothing if it is not the recorded one. A
    /// registration passes its callback, which can be due before this returns.
    std::optional<unsigned> begin(const std::string& words, HotplugCallback callback = {});
    /// A call and its result; usbNoDevice if there is none.
    RecordedEvent ask(const std::string& words);
    /// Waits for an event that `mine` accepts to be the next, then for its time, and goes past it. Nothing
    /// if a difference was found meanwhile.
    std::optional<RecordedEvent> take(const std::function<bool(const RecordedEvent&)>& mine);
    /// Notifies the registration of a device.
    void deliver(const RecordedEvent& event);

    const RecordedEvent* nextEvent() const;  ///< null at the end; the mutex is held

    Executor& executor;
    const Recording recording;
    const Listener differs;
    const Executor::TimePoint start;

    mutable std::mutex mutex;
    Condition changed;
    std::size_t next = 0;
    bool differed = false;
    std::map<unsigned, HotplugCallback> registrations;  ///< by the number of their call
};

}  // namespace kzq::recorder
