#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kzq {

/// What went wrong, and all that is known of it. Putting it into words for a user is the business of who
/// shows it.
struct Trouble {
    enum class Kind : std::uint8_t {
        // getting hold of the pedal
        noPedal,          ///< none there
        unplugged,        ///< it was there and left
        noPermission,     ///< the system does not let this user open it
        heldByAnother,    ///< another program has it
        heldByDriver,     ///< a driver of the kernel has it
        kernelDriver,     ///< such a driver has just let go of it, which ends an acquisition
        cannotOpen,       ///< opening failed for another reason
        noStage,          ///< opened, but it does not say who it is
        unknownStage,     ///< opened, but in neither of the stages the program knows
        inLoader,         ///< it runs only its loader
        noSystemVersion,  ///< the C library's version reads as 0, so no pedal can be used
        // why it is not there, as the host's files show
        nothingOnBus,
        noDeviceFile,      ///< on the bus, but without its file in /dev, as in a container
        ruleMissing,       ///< no permission, and no rule that would give it
        ruleNotInForce,    ///< no permission, but there is a rule: the pedal was there before it
        noUdev,            ///< as in a container: pedals that come later are not noticed
        roadNotInstalled,  ///< import is refused: the usbtmc rules or their helper are missing
        roadNotInForce,    ///< import is refused: they are there, but the pedal was there before them
        roadBlocked,       ///< import is refused: `where`, the driver's file, could not be opened in time
        // talking to it
        busy,             ///< it is playing or recording, or an operation is under way
        refused,          ///< it answered 'N'
        noAnswer,         ///< a request brought no reply
        silent,           ///< a USB call went unanswered and was given up
        transferFailed,   ///< a bulk transfer failed or came up short
        noStatus,         ///< the loop table could not be read
        tableIncomplete,  ///< a part of the loop table did not come, so its gaps say nothing
        changed,          ///< the pedal no longer holds what the user was asked about
        cancelled,
        badRequest,  ///< slot out of range or a callback missing
        emptySlot,   ///< there is no loop in that slot
        outOfMemory,
        tooLarge,  ///< more audio than a WAV file can hold
        noAudio,   ///< the file to export holds no audio
        // what the pedal holds
        noRoom,
        noFreeSlots,
        differs,    ///< it holds something else than was written
        shortLoop,  ///< it holds less than was written
        notErased,
        changedWhileRead,
        // files and folders; `error` is an errno value
        file,
        folder,
        noTemporaryFolder,  ///< there is no place for this run's working copies
        noBackup,
        backupIncomplete,
        backupForeign,
        backupDamaged,
        backupNewer,  ///< written by a newer version of this program
        backupTooLong,
        inputLost,   ///< standard input; `error` is 0 if it is too long
        outputLost,  ///< standard output
        // audio files
        notAFile,     ///< missing, a folder, a pipe or a device
        unreadable,   ///< no permission, or the medium fails
        notAudio,     ///< nothing in it that is sound
        unsupported,  ///< sound of a kind that cannot be read faithfully; `words` names it
        damaged,
        endsEarly,  ///< part of the sound is there; `words`: the milliseconds that are missing, if known
        broken,     ///< the same, of a fault inside it
        noSound,
        sampleRate,     ///< outside 4,000 to 768,000 Hz; `words` is the number
        diskFull,       ///< for the converted file; or for loops, with the numbers in `words`
        outputRefused,  ///< the converted file exists already, or its folder cannot be written to
        limits,         ///< it takes too much time or memory
        toolMissing,    ///< the decoder is not installed; `words` is its path
        decoder,        ///< it failed for a reason of its own
        // the maker's server
        noServer,         ///< it cannot be reached; `words` is the reason, here and below
        untrustedServer,  ///< it could not prove its identity
        oddAnswer,        ///< it answered, but not as it should
        badManifest,
        unverified,  ///< what came is not what the manifest describes
        noCache,
        unknownVersion,  ///< the pedal's; `words` is what it reports
        // firmware
        imageUnreadable,
        imageEmpty,
        imageTooLong,
        loaderRefused,
        loaderNotEntered,
        noReturn,
        notSent,
        unconfirmed,
        olderVersion,  ///< the pedal runs firmware older than what was sent
        stillInLoader,
        // simulated pedals, and recordings of sessions
        noLoop,       ///< a file with a loop's name holds none
        otherFormat,  ///< it is not in the pedal's format, and there is no converter
        twoFiles,     ///< for one slot; `words` names them
        badFault,     ///< a fault that is not one
        badAddress,   ///< nobody can listen there; `error` is 0 if it is no address
        badRecording,
        // a command line
        notASlot,    ///< neither a number nor a range
        noSuchSlot,  ///< beyond the last
        // asking the user
        declined,
        nobodyToAsk
    };

    Kind kind{};
    std::string where = {};   ///< the file, folder, program or step that it is about
    int error = 0;            ///< an errno value; 0: none
    std::string words = {};   ///< the system's, the decoder's or the server's
    std::string remedy = {};  ///< what a hand can do about it, such as a line for a shell

    bool operator==(const Trouble&) const = default;
};

/// A stable word for logs and for programs that read our output, such as "no-pedal".
std::string_view troubleName(Trouble::Kind kind);

}  // namespace kzq
