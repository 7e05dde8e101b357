#pragma once

#include <string>
#include <vector>

#include "operation.h"

namespace kzq::test {

/// What became of one case.
struct Case {
    Mishap mishap;
    std::string phase;  ///< "before", "a request", "data", "in between", "reading back", "afterwards"
    std::string pedal;
    std::string computer;
    std::string line;  ///< what is said first
    int exit;          ///< of the tool; -1: it has none
};

/// Does it once without a mishap, then with every mishap at every USB call. What must hold is checked after
/// each; once in a process.
const std::vector<Case>& swept(const std::string& operation);

}  // namespace kzq::test
