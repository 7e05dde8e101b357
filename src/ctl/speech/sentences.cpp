#include "ctl/speech/sentences.h"

#include "operations/sentences.h"

namespace kzq::ctl {
namespace {

Explanation explained(const Trouble& trouble) {
    const auto code = exitCode(trouble.kind);
    return {code, pedalSentence(trouble), nameOfEnd(trouble.kind, code)};
}

}  // namespace

std::string_view troubleName(const Explanation& explanation) {
    return explanation.trouble.empty() ? nameOfEnd(std::nullopt, explanation.code) : explanation.trouble;
}

std::optional<Explanation> explainConnection(const std::optional<Trouble>& trouble,
                                             const std::vector<Finding>& findings) {
    return trouble && trouble->kind != Trouble::Kind::noPedal
               ? std::optional(explained(foundAbout(*trouble, findings)))
               : std::nullopt;
}

Explanation explainLoop(Trouble::Kind why) {
    switch (why) {
        case Trouble::Kind::emptySlot:
            return {ExitCode::pedalRefused, "the slot is empty."};
        case Trouble::Kind::refused:
            return {ExitCode::pedalRefused, "the pedal refused to send it."};
        case Trouble::Kind::roadNotInstalled:
        case Trouble::Kind::roadNotInForce:
        case Trouble::Kind::roadBlocked:
            return {ExitCode::noPermission, roadSentence({why})};
        case Trouble::Kind::noPedal:
            return {ExitCode::noPedal, "the pedal was unplugged."};
        case Trouble::Kind::noStatus:
            return {ExitCode::pedalRefused, "the pedal did not report its loops."};
        case Trouble::Kind::tooLarge:
            return {ExitCode::pedalRefused,
                    "the pedal gives it a length beyond its 24 minutes, which cannot be. Unplug the pedal, "
                    "plug it in again and try again."};
        case Trouble::Kind::outOfMemory:
            return {ExitCode::fileError, "there is not enough memory to hold it."};
        default:
            return {ExitCode::pedalRefused, "the pedal stopped partway through."};
    }
}

Explanation changedWhileRead() {
    return {ExitCode::pedalRefused, "it changed while it was being read."};
}

Explanation explainExport(Trouble::Kind why) {
    switch (why) {
        case Trouble::Kind::refused:
            return {ExitCode::pedalRefused, "the pedal refused it."};
        case Trouble::Kind::noAudio:
            return {ExitCode::fileError, "its file could not be read."};
        case Trouble::Kind::transferFailed:
            return {ExitCode::pedalRefused, "the pedal stopped partway through. The slot may now be empty."};
        default:
            return explainLoop(why);
    }
}

Explanation cancelledByUser() {
    return explained({Trouble::Kind::cancelled});
}

Explanation pedalUnplugged() {
    return explained({Trouble::Kind::unplugged});
}

Explanation pedalStoppedAnswering() {
    return explained({Trouble::Kind::silent});
}

Explanation pedalBusy() {
    return explained({Trouble::Kind::busy});
}

Explanation pedalInLoader() {
    return explained({Trouble::Kind::inLoader});
}

Explanation statusUnreadable() {
    return explained({Trouble::Kind::tableIncomplete});
}

}  // namespace kzq::ctl
