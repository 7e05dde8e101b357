#include "device/failure.h"

namespace kzq {

std::string_view failureName(Failure failure) {
    switch (failure) {
        case Failure::none:
            return "none";
        case Failure::noPedal:
            return "no-pedal";
        case Failure::noPermission:
            return "no-permission";
        case Failure::heldByAnother:
            return "held-by-another";
        case Failure::kernelDriver:
            return "kernel-driver";
        case Failure::cannotOpen:
            return "cannot-open";
        case Failure::noStage:
            return "no-stage";
        case Failure::silent:
            return "silent";
        case Failure::unknownStage:
            return "unknown-stage";
        case Failure::badRequest:
            return "bad-request";
        case Failure::emptySlot:
            return "empty-slot";
        case Failure::noStatus:
            return "no-status";
        case Failure::refused:
            return "refused";
        case Failure::transferFailed:
            return "transfer-failed";
        case Failure::cancelled:
            return "cancelled";
        case Failure::tooLarge:
            return "too-large";
        case Failure::noAudio:
            return "no-audio";
        case Failure::outOfMemory:
            return "out-of-memory";
    }
    return "?";
}

}  // namespace kzq
