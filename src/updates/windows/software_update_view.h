#pragma once

#include <QString>
#include <optional>
#include <string>

#include "updates/su_updater.h"

namespace kzq {

/// What the window of the program's own updates shows in a state. A button whose word is empty is not shown.
struct SoftwareUpdateView {
    QString headline;
    QString detail;  ///< under the headline; may be empty
    QString notes;   ///< plain text; empty for no notes
    /// How far the bar is, 0 to 1; nothing for no bar.
    std::optional<double> progress;
    QString accept;
    QString cancel;
    bool cream = false;  ///< `accept` changes the program, and has the face that says so
};

/// The view of `status` in a program of version `current`.
SoftwareUpdateView softwareUpdateView(const UpdateStatus& status, const std::string& current);

}  // namespace kzq
