#include "ctl/sentences.h"

namespace kzq::ctl {
namespace {

Explanation noPermission(bool ruleInstalled) {
    if (ruleInstalled) {
        return {ExitCode::noPermission,
                "You have no permission to use the pedal. Its udev rule is installed, but not in force for "
                "it yet: "
                "unplug the pedal and plug it in again. If that does not help, run "
                "\"sudo udevadm control --reload\" first, and note that the rule is for the user who is "
                "logged in "
                "at this computer."};
    }
    return {ExitCode::noPermission,
            "You have no permission to use the pedal. Install its udev rule (70-kzq7306.rules, which comes "
            "with this "
            "program) in /etc/udev/rules.d, run \"sudo udevadm control --reload\", unplug the pedal and plug "
            "it in "
            "again."};
}

}  // namespace

std::optional<Explanation> explainConnection(Failure failure, bool ruleInstalled) {
    switch (failure) {
        case Failure::noPermission:
            return noPermission(ruleInstalled);
        case Failure::heldByAnother:
            return Explanation{ExitCode::pedalRefused,
                               "The pedal is in use by another program. Close that program, then try again."};
        case Failure::kernelDriver:
            return Explanation{ExitCode::pedalRefused,
                               "A driver of the system held the pedal and has now let go of it. Try again."};
        case Failure::cannotOpen:
            return Explanation{
                ExitCode::pedalRefused,
                "The pedal is connected but cannot be opened. Unplug it and plug it in again."};
        case Failure::noStage:
        case Failure::unknownStage:
            return Explanation{
                ExitCode::pedalRefused,
                "The pedal is connected but does not say what it is. Unplug it and plug it in again."};
        default:
            return std::nullopt;
    }
}

Explanation explainLoop(Failure failure) {
    switch (failure) {
        case Failure::emptySlot:
            return {ExitCode::pedalRefused, "the slot is empty."};
        case Failure::refused:
            return {ExitCode::pedalRefused, "the pedal refused to send it."};
        case Failure::noPedal:
            return {ExitCode::noPedal, "the pedal was unplugged."};
        case Failure::noStatus:
            return {ExitCode::pedalRefused, "the pedal did not tell what it holds."};
        case Failure::tooLarge:
            return {ExitCode::fileError, "it is longer than a WAV file can be."};
        case Failure::outOfMemory:
            return {ExitCode::fileError, "there is not enough memory to hold it."};
        default:
            return {ExitCode::pedalRefused, "the pedal stopped in the middle of it."};
    }
}

Explanation explainExport(Failure failure) {
    switch (failure) {
        case Failure::refused:
            return {ExitCode::pedalRefused, "the pedal refused to take it."};
        case Failure::noAudio:
            return {ExitCode::fileError, "its file could not be read."};
        case Failure::transferFailed:
            return {ExitCode::pedalRefused,
                    "the pedal stopped in the middle of it. The slot may be empty now."};
        default:
            return explainLoop(failure);
    }
}

Explanation cancelledByUser() {
    return {ExitCode::cancelled, "Cancelled."};
}

Explanation noPedalConnected() {
    return {ExitCode::noPedal,
            "No pedal is connected. Plug it in and try again, or wait for it with --wait."};
}

Explanation pedalUnplugged() {
    return {ExitCode::noPedal, "The pedal was unplugged."};
}

Explanation pedalStoppedAnswering() {
    return {ExitCode::pedalRefused, "The pedal stopped answering. Unplug it and plug it in again."};
}

Explanation pedalBusy() {
    return {ExitCode::pedalRefused, "The pedal is busy. Stop it and try again."};
}

Explanation pedalInLoader() {
    return {ExitCode::pedalRefused,
            "The pedal runs only its loader and waits for firmware. Run \"kzq7306ctl firmware "
            "install\"."};
}

Explanation statusUnreadable() {
    return {ExitCode::pedalRefused,
            "The pedal does not tell what it holds. Unplug it, plug it in again and try again."};
}

Explanation systemVersionUnknown() {
    return {ExitCode::noPedal,
            "The version of the C library reads as 0, so the pedal cannot be used on this system."};
}

Explanation outputLost() {
    return {ExitCode::fileError, "Standard output could not be written."};
}

}  // namespace kzq::ctl
