#include "platform/trouble.h"

#include <array>
#include <utility>

namespace kzq {
namespace {

using Kind = Trouble::Kind;

constexpr auto names = std::to_array<std::pair<Kind, std::string_view>>({
    {Kind::noPedal, "no-pedal"},
    {Kind::unplugged, "unplugged"},
    {Kind::noPermission, "no-permission"},
    {Kind::heldByAnother, "held-by-another"},
    {Kind::heldByDriver, "held-by-driver"},
    {Kind::kernelDriver, "kernel-driver"},
    {Kind::cannotOpen, "cannot-open"},
    {Kind::noStage, "no-stage"},
    {Kind::unknownStage, "unknown-stage"},
    {Kind::inLoader, "in-loader"},
    {Kind::noSystemVersion, "no-system-version"},
    {Kind::nothingOnBus, "nothing-on-bus"},
    {Kind::noDeviceFile, "no-device-file"},
    {Kind::ruleMissing, "rule-missing"},
    {Kind::ruleNotInForce, "rule-not-in-force"},
    {Kind::noUdev, "no-udev"},
    {Kind::roadNotInstalled, "road-not-installed"},
    {Kind::roadNotInForce, "road-not-in-force"},
    {Kind::roadBlocked, "road-blocked"},
    {Kind::busy, "busy"},
    {Kind::refused, "refused"},
    {Kind::noAnswer, "no-answer"},
    {Kind::silent, "silent"},
    {Kind::transferFailed, "transfer-failed"},
    {Kind::noStatus, "no-status"},
    {Kind::tableIncomplete, "table-incomplete"},
    {Kind::changed, "changed"},
    {Kind::cancelled, "cancelled"},
    {Kind::badRequest, "bad-request"},
    {Kind::emptySlot, "empty-slot"},
    {Kind::outOfMemory, "out-of-memory"},
    {Kind::tooLarge, "too-large"},
    {Kind::noAudio, "no-audio"},
    {Kind::noRoom, "no-room"},
    {Kind::noFreeSlots, "no-free-slots"},
    {Kind::differs, "differs"},
    {Kind::shortLoop, "short-loop"},
    {Kind::notErased, "not-erased"},
    {Kind::changedWhileRead, "changed-while-read"},
    {Kind::file, "file"},
    {Kind::folder, "folder"},
    {Kind::noTemporaryFolder, "no-temporary-folder"},
    {Kind::noBackup, "no-backup"},
    {Kind::backupIncomplete, "backup-incomplete"},
    {Kind::backupForeign, "backup-foreign"},
    {Kind::backupDamaged, "backup-damaged"},
    {Kind::backupNewer, "backup-newer"},
    {Kind::backupTooLong, "backup-too-long"},
    {Kind::inputLost, "input-lost"},
    {Kind::outputLost, "output-lost"},
    {Kind::notAFile, "not-a-file"},
    {Kind::unreadable, "unreadable"},
    {Kind::notAudio, "not-audio"},
    {Kind::unsupported, "unsupported"},
    {Kind::damaged, "damaged"},
    {Kind::endsEarly, "ends-early"},
    {Kind::broken, "broken"},
    {Kind::noSound, "no-sound"},
    {Kind::sampleRate, "sample-rate"},
    {Kind::diskFull, "disk-full"},
    {Kind::outputRefused, "output-refused"},
    {Kind::limits, "limits"},
    {Kind::toolMissing, "tool-missing"},
    {Kind::decoder, "decoder"},
    {Kind::noServer, "no-server"},
    {Kind::untrustedServer, "untrusted-server"},
    {Kind::oddAnswer, "odd-answer"},
    {Kind::badManifest, "bad-manifest"},
    {Kind::unverified, "unverified"},
    {Kind::noCache, "no-cache"},
    {Kind::unknownVersion, "unknown-version"},
    {Kind::imageUnreadable, "image-unreadable"},
    {Kind::imageEmpty, "image-empty"},
    {Kind::imageTooLong, "image-too-long"},
    {Kind::loaderRefused, "loader-refused"},
    {Kind::loaderNotEntered, "loader-not-entered"},
    {Kind::noReturn, "no-return"},
    {Kind::notSent, "not-sent"},
    {Kind::unconfirmed, "unconfirmed"},
    {Kind::olderVersion, "older-version"},
    {Kind::stillInLoader, "still-in-loader"},
    {Kind::noLoop, "no-loop"},
    {Kind::otherFormat, "other-format"},
    {Kind::twoFiles, "two-files"},
    {Kind::badFault, "bad-fault"},
    {Kind::badAddress, "bad-address"},
    {Kind::badRecording, "bad-recording"},
    {Kind::notASlot, "not-a-slot"},
    {Kind::noSuchSlot, "no-such-slot"},
    {Kind::declined, "declined"},
    {Kind::nobodyToAsk, "nobody-to-ask"},
});

constexpr bool everyKindInOrder() {
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (names[i].first != static_cast<Kind>(i)) {
            return false;
        }
    }
    return names.back().first == Kind::nobodyToAsk;
}
static_assert(everyKindInOrder());

}  // namespace

std::string_view troubleName(Kind kind) {
    return names[static_cast<std::size_t>(kind)].second;
}

}  // namespace kzq
