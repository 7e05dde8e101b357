#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace kzq {

/// Why a pedal that a user misses is not there, or cannot do all that it should.
enum class PedalTrouble {
    nothingOnBus,
    fileMissing,       ///< on the bus, but without its file in /dev, as in a container
    ruleMissing,       ///< no permission, and no rule that would give it
    ruleNotInForce,    ///< no permission, but there is a rule: the pedal was there before it
    heldByAnother,     ///< a program has the interface
    heldByDriver,      ///< a driver of the kernel has it
    noUdev,            ///< as in a container: pedals that come later are not noticed
    roadNotInstalled,  ///< import is refused: the usbtmc rules or their helper are missing
    roadNotInForce     ///< import is refused: they are there, but the pedal was there before them
};

/// The answer to one question about the pedal and this computer.
struct Finding {
    PedalTrouble kind;
    bool present = false;  ///< otherwise all is well in this respect
    std::string sentence;  ///< what was found, in either case, and what a hand can do about it
    std::string remedy;    ///< a line for a shell that mends it, or shows more; empty when there is none
};

/// The one to tell first; nothing when all is well. `findings` stand in the order in which they are best
/// mended.
inline std::optional<Finding> firstTrouble(const std::vector<Finding>& findings) {
    const auto found = std::ranges::find_if(findings, &Finding::present);
    return found == findings.end() ? std::nullopt : std::optional(*found);
}

/// For a place that says already that no pedal is connected: what is in the way and its remedy, in a line. A
/// remedy that would be too long to read there, and to type from it, is left to the doctor. Empty when
/// nothing but the pedal is missing.
inline std::string obstacleLine(const std::vector<Finding>& findings) {
    const auto found = std::ranges::find_if(findings, [](const Finding& finding) {
        return finding.present && finding.kind != PedalTrouble::nothingOnBus;
    });
    if (found == findings.end()) {
        return {};
    }
    constexpr std::size_t readable = 80;
    if (found->remedy.size() > readable) {
        return found->sentence + " \"kzq7306ctl doctor\" tells how to mend it.";
    }
    return found->sentence + (found->remedy.empty() ? "" : " The command: " + found->remedy);
}

}  // namespace kzq
