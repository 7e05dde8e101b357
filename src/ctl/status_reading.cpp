#include "ctl/status_reading.h"

#include <mutex>

#include "device/commands.h"

namespace kzq::ctl {

namespace {

/// The status, if every request for it was answered in full: a failed one reads as a table of empty slots.
std::optional<Status> wholeStatus(KZQ7306& looper) {
    constexpr int tries = 3;
    const std::lock_guard guard(looper.lock());
    for (int i = 0; i < tries; ++i) {
        const auto before = looper.shortReplies();
        auto status = looper.status(true);
        if (!status || looper.shortReplies() == before) {
            return status;
        }
    }
    return std::nullopt;
}

}  // namespace

bool pedalAnswers(KZQ7306& looper) {
    const auto reply = looper.control(command::stage);
    return reply && static_cast<char>(reply->at(stageOffset)) != stageNone;
}

StatusReading readStatus(KZQ7306& looper) {
    StatusReading reading;
    reading.status = wholeStatus(looper);
    reading.answers = pedalAnswers(looper);
    const bool unread = reading.status && reading.status->version.find('\0') != std::string::npos;
    if (!reading.answers || unread) {
        reading.status.reset();
    }
    return reading;
}

}  // namespace kzq::ctl
