#include "ctl/status_reading.h"

#include <utility>

#include "device/commands.h"

namespace kzq::ctl {

namespace {

/// A request that fails reads as a table of empty slots, so only what is read twice alike counts.
std::optional<Status> agreedStatus(KZQ7306& looper) {
    constexpr int tries = 4;
    auto last = looper.status(true);
    for (int i = 0; i < tries && last; ++i) {
        auto again = looper.status(true);
        if (again == last) {
            return last;
        }
        last = std::move(again);
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
    reading.status = agreedStatus(looper);
    reading.answers = pedalAnswers(looper);
    const bool unread = reading.status && reading.status->version.find('\0') != std::string::npos;
    if (!reading.answers || unread) {
        reading.status.reset();
    }
    return reading;
}

}  // namespace kzq::ctl
