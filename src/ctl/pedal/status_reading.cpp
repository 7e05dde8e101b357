#include "ctl/pedal/status_reading.h"

#include "device/replies.h"
#include "device/whole_status.h"
#include "device/wire.h"

namespace kzq::ctl {

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
