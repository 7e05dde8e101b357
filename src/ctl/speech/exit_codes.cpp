#include "ctl/speech/exit_codes.h"

namespace kzq::ctl {
namespace {

using Kind = Trouble::Kind;

/// Whether the end of a command is named by what it is, not only by its exit code.
bool hasNameOfItsOwn(Kind kind) {
    switch (kind) {
        case Kind::busy:
        case Kind::silent:
        case Kind::tableIncomplete:
        case Kind::outputLost:
        case Kind::unconfirmed:
        case Kind::nobodyToAsk:
            return true;
        default:
            return kind <= Kind::roadBlocked;
    }
}

std::string_view nameOf(ExitCode code) {
    switch (code) {
        case ExitCode::ok:
            return "none";
        case ExitCode::usage:
            return "usage";
        case ExitCode::noPedal:
            return "no-pedal";
        case ExitCode::noPermission:
            return "no-permission";
        case ExitCode::pedalRefused:
            return "pedal-refused";
        case ExitCode::fileError:
            return "file";
        case ExitCode::someFailed:
            return "some-failed";
        case ExitCode::noDownload:
            return "no-download";
        case ExitCode::cancelled:
            return "cancelled";
    }
    return "?";
}

}  // namespace

ExitCode exitCode(Kind kind) {
    switch (kind) {
        case Kind::noPedal:
        case Kind::unplugged:
        case Kind::noSystemVersion:
        case Kind::nothingOnBus:
        case Kind::noDeviceFile:
        case Kind::noUdev:
        case Kind::noReturn:
            return ExitCode::noPedal;
        case Kind::noPermission:
        case Kind::ruleMissing:
        case Kind::ruleNotInForce:
        case Kind::roadNotInstalled:
        case Kind::roadNotInForce:
        case Kind::roadBlocked:
            return ExitCode::noPermission;
        case Kind::outOfMemory:
        case Kind::noAudio:
        case Kind::noCache:
        case Kind::imageUnreadable:
        case Kind::imageEmpty:
        case Kind::imageTooLong:
            return ExitCode::fileError;
        case Kind::differs:
        case Kind::shortLoop:
            return ExitCode::someFailed;
        case Kind::badFault:
        case Kind::nobodyToAsk:
            return ExitCode::usage;
        case Kind::cancelled:
        case Kind::declined:
            return ExitCode::cancelled;
        default:
            break;
    }
    if (kind >= Kind::noServer && kind <= Kind::unverified) {
        return ExitCode::noDownload;
    }
    const bool ofFiles =
        (kind >= Kind::file && kind <= Kind::decoder) || (kind >= Kind::noLoop && kind <= Kind::badRecording);
    return ofFiles ? ExitCode::fileError : ExitCode::pedalRefused;
}

ExitCode exitCode(const Outcome& outcome) {
    if (outcome.end) {
        return exitCode(outcome.end->kind);
    }
    const auto* const failure = outcome.firstFailure();
    if (failure == nullptr) {
        return ExitCode::ok;
    }
    return outcome.done() == 0 ? exitCode(failure->trouble->kind) : ExitCode::someFailed;
}

std::string_view nameOfFinding(Kind kind) {
    switch (kind) {
        case Kind::noSystemVersion:
            return "system-version";
        case Kind::inLoader:
            return "loader";
        case Kind::nothingOnBus:
            return "not-on-bus";
        case Kind::roadNotInstalled:
            return "import-rules-missing";
        case Kind::roadNotInForce:
            return "import-rules-not-in-force";
        case Kind::silent:
            return "not-answering";
        case Kind::tableIncomplete:
            return "no-status";
        case Kind::outputLost:
            return "output";
        case Kind::nobodyToAsk:
            return "confirmation-needed";
        default:
            return troubleName(kind);
    }
}

std::string_view nameOfFailure(Kind kind) {
    switch (kind) {
        case Kind::changedWhileRead:
            return "changed";
        case Kind::shortLoop:
            return "differs";
        case Kind::notErased:
            return "refused";
        default:
            return troubleName(kind);
    }
}

std::string_view nameOfEnd(const std::optional<Kind>& kind, ExitCode code) {
    return kind && hasNameOfItsOwn(*kind) ? nameOfFinding(*kind) : nameOf(code);
}

}  // namespace kzq::ctl
