#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace kzq {

/// Why a pedal is not available, or does not fully work.
enum class PedalTrouble {
    nothingOnBus,
    fileMissing,       ///< on the bus, but without its file in /dev, as in a container
    ruleMissing,       ///< no permission, and no rule that would give it
    ruleNotInForce,    ///< no permission, but there is a rule, installed after the pedal was plugged in
    heldByAnother,     ///< a program has the interface
    heldByDriver,      ///< a driver of the kernel has it
    noUdev,            ///< as in a container: pedals plugged in later are not noticed
    roadNotInstalled,  ///< import is refused: the usbtmc rules or their helper are missing
    roadNotInForce     ///< import is refused: they were installed after the pedal was plugged in
};

/// The result of one check of the pedal and this computer.
struct Finding {
    PedalTrouble kind;
    bool present = false;  ///< whether there is trouble of this kind
    std::string sentence;  ///< what was found, in either case, and what to do by hand
    std::string remedy;    ///< a shell command that fixes it or shows more; empty if there is none
};

/// The trouble to report first; nothing if all is well. `findings` are in the order in which to fix them.
inline std::optional<Finding> firstTrouble(const std::vector<Finding>& findings) {
    const auto found = std::ranges::find_if(findings, &Finding::present);
    return found == findings.end() ? std::nullopt : std::optional(*found);
}

/// For a place that already says that no pedal is connected: the obstacle and its remedy, in one line. A
/// remedy too long to read and type from there is left to the doctor. Empty if only the pedal is missing.
inline std::string obstacleLine(const std::vector<Finding>& findings) {
    const auto found = std::ranges::find_if(findings, [](const Finding& finding) {
        return finding.present && finding.kind != PedalTrouble::nothingOnBus;
    });
    if (found == findings.end()) {
        return {};
    }
    constexpr std::size_t readable = 80;
    if (found->remedy.size() > readable) {
        return found->sentence + " Run \"kzq7306ctl doctor\" to see how to fix it.";
    }
    return found->sentence + (found->remedy.empty() ? "" : " Run: " + found->remedy);
}

}  // namespace kzq
