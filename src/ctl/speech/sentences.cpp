#include "ctl/speech/sentences.h"

#include <algorithm>
#include <initializer_list>

#include "operations/sentences.h"

namespace kzq::ctl {
namespace {

ExitCode codeOf(PedalTrouble trouble) {
    switch (trouble) {
        case PedalTrouble::nothingOnBus:
        case PedalTrouble::fileMissing:
            return ExitCode::noPedal;
        case PedalTrouble::ruleMissing:
        case PedalTrouble::ruleNotInForce:
        case PedalTrouble::roadNotInstalled:
        case PedalTrouble::roadNotInForce:
            return ExitCode::noPermission;
        default:
            return ExitCode::pedalRefused;
    }
}

/// The first of `kinds` that was found, as an explanation with `code`; otherwise `sentence`.
Explanation found(const std::vector<Finding>& findings, std::initializer_list<PedalTrouble> kinds,
                  const Explanation& otherwise) {
    const auto finding = std::ranges::find_if(findings, [&](const Finding& candidate) {
        return candidate.present && std::ranges::find(kinds, candidate.kind) != kinds.end();
    });
    return finding == findings.end()
               ? otherwise
               : Explanation{otherwise.code, explain(*finding).sentence, troubleName(finding->kind)};
}

}  // namespace

std::string_view troubleName(const Explanation& explanation) {
    if (!explanation.trouble.empty()) {
        return explanation.trouble;
    }
    switch (explanation.code) {
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

std::string_view troubleName(PedalTrouble trouble) {
    switch (trouble) {
        case PedalTrouble::nothingOnBus:
            return "not-on-bus";
        case PedalTrouble::fileMissing:
            return "no-device-file";
        case PedalTrouble::ruleMissing:
            return "rule-missing";
        case PedalTrouble::ruleNotInForce:
            return "rule-not-in-force";
        case PedalTrouble::heldByAnother:
            return "held-by-another";
        case PedalTrouble::heldByDriver:
            return "held-by-driver";
        case PedalTrouble::noUdev:
            return "no-udev";
        case PedalTrouble::roadNotInstalled:
            return "import-rules-missing";
        case PedalTrouble::roadNotInForce:
            return "import-rules-not-in-force";
    }
    return "?";
}

Explanation explain(const Finding& trouble) {
    return {codeOf(trouble.kind),
            trouble.sentence + (trouble.remedy.empty() ? "" : " Run: " + trouble.remedy),
            troubleName(trouble.kind)};
}

std::optional<Explanation> explainConnection(const std::optional<Trouble>& trouble,
                                             const std::vector<Finding>& findings) {
    if (!trouble) {
        return std::nullopt;
    }
    switch (trouble->kind) {
        case Trouble::Kind::noPermission:
            return found(findings, {PedalTrouble::ruleMissing, PedalTrouble::ruleNotInForce},
                         {ExitCode::noPermission, "You do not have permission to use the pedal."});
        case Trouble::Kind::heldByAnother:
            return found(findings, {PedalTrouble::heldByAnother, PedalTrouble::heldByDriver},
                         {ExitCode::pedalRefused,
                          "The pedal is in use by another program. Close that program, then try again."});
        case Trouble::Kind::kernelDriver:
            return Explanation{ExitCode::pedalRefused,
                               "A kernel driver was holding the pedal and has now released it. Try again."};
        case Trouble::Kind::cannotOpen:
            return Explanation{
                ExitCode::pedalRefused,
                "The pedal is connected but cannot be opened. Unplug it and plug it in again."};
        case Trouble::Kind::silent:
            return pedalStoppedAnswering();
        case Trouble::Kind::noStage:
        case Trouble::Kind::unknownStage:
            return Explanation{
                ExitCode::pedalRefused,
                "The pedal is connected but does not identify itself. Unplug it and plug it in again."};
        default:
            return std::nullopt;
    }
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
    return {ExitCode::cancelled, "Cancelled."};
}

Explanation noPedalConnected(const std::vector<Finding>& findings) {
    const Explanation plain{ExitCode::noPedal,
                            "No pedal is connected. Plug it in and try again, or use --wait."};
    return found(findings, {PedalTrouble::fileMissing, PedalTrouble::noUdev}, plain);
}

Explanation pedalUnplugged() {
    return {ExitCode::noPedal, "The pedal was unplugged.", "unplugged"};
}

Explanation pedalStoppedAnswering() {
    return {ExitCode::pedalRefused, "The pedal stopped answering. Unplug it and plug it in again.",
            "not-answering"};
}

Explanation pedalBusy() {
    return {ExitCode::pedalRefused, "The pedal is busy. Stop it and try again.", "busy"};
}

Explanation pedalInLoader() {
    return {ExitCode::pedalRefused,
            "The pedal is running only its loader and needs firmware. Run \"kzq7306ctl firmware "
            "install\".",
            "loader"};
}

Explanation statusUnreadable() {
    return {ExitCode::pedalRefused,
            "The pedal did not report its loops. Unplug it, plug it in again and try again.", "no-status"};
}

Explanation systemVersionUnknown() {
    return {ExitCode::noPedal,
            "The version of the C library reads as 0, so the pedal cannot be used on this system.",
            "system-version"};
}

Explanation outputLost() {
    return {ExitCode::fileError, conversionSentence({Trouble::Kind::outputLost}), "output"};
}

}  // namespace kzq::ctl
