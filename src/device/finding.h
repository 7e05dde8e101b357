#pragma once

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include "platform/trouble.h"
#include "words/words.h"

namespace kzq {

/// The result of one check of the pedal and this computer.
struct Finding {
    Trouble::Kind kind;
    bool present = false;  ///< whether there is trouble of this kind
    std::string sentence;  ///< what was found, in either case, and what to do by hand
    std::string remedy;    ///< a shell command that fixes it or shows more; empty if there is none
    /// Which program has the pedal: "kzq7306ctl (process 4711)". Empty: none, or it is not known.
    std::string program = {};
};

/// The trouble to report first; nothing if all is well. `findings` are in the order in which to fix them.
inline std::optional<Finding> firstTrouble(const std::vector<Finding>& findings) {
    const auto found = std::ranges::find_if(findings, &Finding::present);
    return found == findings.end() ? std::nullopt : std::optional(*found);
}

/// In place of all others.
inline Finding simulatedFinding() {
    return {
        Trouble::Kind::nothingOnBus, false, words("A simulated pedal is used instead of a real one."), {}};
}

inline Trouble asTrouble(const Finding& finding) {
    return {finding.kind, {}, 0, finding.sentence, finding.remedy};
}

/// What was found about that trouble with getting hold of a pedal, with the sentence in `words`; otherwise
/// the trouble itself.
inline Trouble foundAbout(const Trouble& trouble, const std::vector<Finding>& findings) {
    using Kind = Trouble::Kind;
    const auto first = [&](std::initializer_list<Kind> kinds) {
        const auto found = std::ranges::find_if(findings, [kinds](const Finding& finding) {
            return finding.present && std::ranges::find(kinds, finding.kind) != kinds.end();
        });
        return found == findings.end() ? trouble : asTrouble(*found);
    };
    switch (trouble.kind) {
        case Kind::noPedal:
            return first({Kind::noDeviceFile, Kind::noUdev});
        case Kind::noPermission:
            return first({Kind::ruleMissing, Kind::ruleNotInForce});
        case Kind::heldByAnother:
            return first({Kind::heldByAnother, Kind::heldByDriver});
        default:
            return trouble;
    }
}

/// For a place that already says that no pedal is connected: the obstacle and its remedy, in one line. A
/// remedy too long to read and type from there is left to the doctor. Empty if only the pedal is missing.
inline std::string obstacleLine(const std::vector<Finding>& findings) {
    const auto found = std::ranges::find_if(findings, [](const Finding& finding) {
        return finding.present && finding.kind != Trouble::Kind::nothingOnBus;
    });
    if (found == findings.end()) {
        return {};
    }
    constexpr std::size_t readable = 80;
    return inTurn(found->sentence, found->remedy.size() > readable
                                       ? words("Run \"kzq7306ctl doctor\" to see how to fix it.")
                                   : found->remedy.empty() ? ""
                                                           : words("Run: %1", found->remedy));
}

/// That another program has the pedal, for a line beside the window's; empty if none has.
inline std::string holderLine(const std::vector<Finding>& findings) {
    const auto found = std::ranges::find_if(findings, [](const Finding& finding) {
        return finding.present && finding.kind == Trouble::Kind::heldByAnother;
    });
    return found == findings.end()  ? ""
           : found->program.empty() ? words("Another program is using the pedal")
                                    : words("%1 is using the pedal", found->program);
}

}  // namespace kzq
