#include "ctl/status_reading.h"

#include "device/commands.h"

namespace kzq::ctl {

bool pedalAnswers(KZQ7306& looper) {
    const auto reply = looper.control(command::stage);
    return reply && static_cast<char>(reply->at(stageOffset)) != stageNone;
}

StatusReading readStatus(KZQ7306& looper) {
    StatusReading reading;
    reading.status = looper.status(true);
    reading.answers = pedalAnswers(looper);
    const bool unread = reading.status && reading.status->version.find('\0') != std::string::npos;
    if (!reading.answers || unread) {
        reading.status.reset();
    }
    return reading;
}

}  // namespace kzq::ctl
