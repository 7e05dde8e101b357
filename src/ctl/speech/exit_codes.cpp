#include "ctl/speech/exit_codes.h"

#include <algorithm>
#include <array>
#include <utility>

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
        case Kind::olderVersion:
        case Kind::nobodyToAsk:
            return true;
        default:
            return kind <= Kind::roadBlocked;
    }
}

template <class Names, class Key>
std::string_view find(const Names& names, Key key, std::string_view other) {
    const auto* const found = std::ranges::find(names, key, &Names::value_type::first);
    return found == names.end() ? other : found->second;
}

constexpr auto codes = std::to_array<std::pair<ExitCode, std::string_view>>({
    {ExitCode::ok, "none"},
    {ExitCode::usage, "usage"},
    {ExitCode::noPedal, "no-pedal"},
    {ExitCode::noPermission, "no-permission"},
    {ExitCode::pedalRefused, "pedal-refused"},
    {ExitCode::fileError, "file"},
    {ExitCode::someFailed, "some-failed"},
    {ExitCode::noDownload, "no-download"},
    {ExitCode::cancelled, "cancelled"},
});

// Where they are not called as in the log.

constexpr auto findings = std::to_array<std::pair<Kind, std::string_view>>({
    {Kind::noSystemVersion, "system-version"},
    {Kind::inLoader, "loader"},
    {Kind::nothingOnBus, "not-on-bus"},
    {Kind::roadNotInstalled, "import-rules-missing"},
    {Kind::roadNotInForce, "import-rules-not-in-force"},
    {Kind::silent, "not-answering"},
    {Kind::tableIncomplete, "no-status"},
    {Kind::outputLost, "output"},
    {Kind::nobodyToAsk, "confirmation-needed"},
});
constexpr auto failures = std::to_array<std::pair<Kind, std::string_view>>({
    {Kind::changedWhileRead, "changed"},
    {Kind::shortLoop, "differs"},
    {Kind::notErased, "refused"},
});

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
    return find(findings, kind, troubleName(kind));
}

std::string_view nameOfFailure(Kind kind) {
    return find(failures, kind, troubleName(kind));
}

std::string_view nameOfEnd(const std::optional<Kind>& kind, ExitCode code) {
    return kind && hasNameOfItsOwn(*kind) ? nameOfFinding(*kind) : find(codes, code, "?");
}

}  // namespace kzq::ctl
