#pragma once

#include <optional>
#include <string>
#include <vector>

namespace kzq {

/// The answer to an alert: its button, in the order of adding.
constexpr int alertFirstButton = 1000;
constexpr int alertSecondButton = 1001;
constexpr int alertThirdButton = 1002;

/// A question or a notice, not shown yet; Dialogs::run shows it. All texts UTF-8.
struct Alert {
    struct Button {
        std::string title;
        bool visible = true;
        bool operator==(const Button&) const = default;
    };

    std::string headline;
    std::string finePrint;  ///< empty: none is shown
    std::vector<Button> buttons;
    /// Asks before data is lost; shown with the yellow mark.
    bool destroys = false;
    /// Of a check box under the text; empty: there is none.
    std::string option = {};

    bool operator==(const Alert&) const = default;
};

/// A notice with "OK". The last button of each alert is an invisible "Cancel": it is the
/// answer for Escape and for closing the alert.
Alert alertWithHeadline(std::string headline, const std::optional<std::string>& finePrint = std::nullopt);
/// A question with "Yes" and "No": before audio is lost.
Alert yesOrNoAlertWithHeadline(std::string headline,
                               const std::optional<std::string>& finePrint = std::nullopt);

}  // namespace kzq
