#pragma once

#include <QString>
#include <optional>
#include <string>

#include "updates/su_updater.h"

namespace kzq {

/// What the software update window shows in a state. A button with an empty label is not shown.
struct SoftwareUpdateView {
    QString headline;
    QString detail;  ///< under the headline; may be empty
    QString notes;   ///< plain text; empty for no notes
    /// Value of the bar, 0 to 1; nothing for no bar.
    std::optional<double> progress;
    QString accept;
    QString cancel;
    bool cream = false;  ///< `accept` changes the program, and its button looks like it
};

/// The view of `status` in a program of version `current`.
SoftwareUpdateView softwareUpdateView(const UpdateStatus& status, const std::string& current);

}  // namespace kzq
