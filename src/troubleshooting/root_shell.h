#pragma once

#include <string>

#include "troubleshooting/doctor.h"

namespace kzq {

/// Where programs are looked for, and whether this one is root's.
struct RootPlaces {
    std::string path;  ///< as $PATH: folders between colons
    bool isRoot = false;

    static RootPlaces ofThisProcess();
};

/// A shell of root's: pkexec's, which asks for a password; the usual one for root itself. A single program
/// with plain arguments is run without it. Empty without pkexec.
RootShell rootShell(const RootPlaces& places = RootPlaces::ofThisProcess());

}  // namespace kzq
