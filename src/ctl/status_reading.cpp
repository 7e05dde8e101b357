#include "ctl/status_reading.h"

#include <mutex>

#include "device/replies.h"
#include "device/wire.h"

namespace kzq::ctl {

namespace {

/// The status, if every reply to it came whole.
std::optional<Status> wholeStatus(KZQ7306& looper) {
    constexpr int tries = 3;
    const std::lock_guard guard(looper.lock());
    for (int i = 0; i < tries; ++i) {
        auto status = looper.status(true);
        if (!status || status->loops.complete) {
            return status;
        }
    }
    return std::nullopt;
}

}  // namespace

bool pedalAnswers(KZQ7306& looper) {
    const auto reply = looper.control(wire::stage.code);
    return reply && stageIn(*reply) != stageNone;
}

StatusReading readStatus(KZQ7306& looper) {
    StatusReading reading;
    reading.status = wholeStatus(looper);
    reading.answers = pedalAnswers(looper);
    if (!reading.answers) {
        reading.status.reset();
    }
    return reading;
}

}  // namespace kzq::ctl
