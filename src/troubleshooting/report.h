#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "device/finding.h"
#include "troubleshooting/hidden_names.h"

namespace kzq {

/// What a user can send to someone who is to find out what went wrong. There is no audio in it.
struct TroubleReport {
    /// What came of something.
    struct Result {
        std::chrono::system_clock::time_point time{};
        std::string sentence;     ///< "2 of 10 loops saved: no space left on the disk"
        std::string detail = {};  ///< complete sentences; may be empty
        bool failure = false;
    };

    std::vector<std::string> versions = {};  ///< of programs, libraries and the computer, a line each
    std::vector<Finding> findings = {};
    std::vector<Result> results = {};   ///< newest first
    std::vector<std::string> log = {};  ///< oldest first
    Owner owner = {};
};

/// As a file. `names` are those of files that its sentences have; they are left out unless wanted.
std::string reportText(const TroubleReport& report, bool namesWanted, std::vector<std::string> names = {});

/// What the report is called unless the user says otherwise.
inline constexpr auto reportName = "7306 report.txt";

}  // namespace kzq
