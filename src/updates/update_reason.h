#pragma once

#include <concepts>
#include <string>

#include "words/words.h"

namespace kzq {

/// Why an update ends: a phrase without a full stop. Empty: it does not.
struct UpdateReason {
    std::string english = {};  ///< for the log
    std::string shown = {};    ///< for the user
    bool empty() const { return english.empty(); }
};

/// `text` is one for the catalogue, and so are the `parts` that stand in it, as far as they are its texts.
template <std::same_as<std::string>... Parts>
UpdateReason updateReason(const std::string& text, const Parts&... parts) {
    return {inEnglish({text.c_str()}, {parts...}), words(text.c_str(), words(parts.c_str())...)};
}

}  // namespace kzq
