#pragma once

#include <string_view>

namespace kzq {

/// Why the device link's last operation returned nothing, false or 0: for the log and for messages to the
/// user.
enum class Failure {
    none,
    noPedal,         ///< nothing acquired, or it left the bus
    noPermission,    ///< the operating system refused to open the pedal
    heldByAnother,   ///< another program or driver has the interface
    kernelDriver,    ///< a kernel driver was detached, which ends an acquisition
    cannotOpen,      ///< opening failed for another reason
    noStage,         ///< opened, but it did not answer the stage query
    silent,          ///< opened, but reset because it left that query unanswered
    unknownStage,    ///< opened, but in a stage the program does not know
    badRequest,      ///< slot out of range or a callback missing
    emptySlot,       ///< there is no loop in that slot
    noStatus,        ///< the loop table could not be read
    refused,         ///< the pedal answered 'N'
    transferFailed,  ///< a bulk transfer failed or was short
    cancelled,       ///< cancelTransfer
    tooLarge,        ///< more audio than a WAV file can hold
    noAudio,         ///< the file to export holds no audio
    outOfMemory      ///< not enough memory for the audio
};

/// A stable word for logs, such as "no-pedal".
std::string_view failureName(Failure failure);

}  // namespace kzq
