#pragma once

#include <QString>
#include <string>

#include "words/words.h"

namespace kzq {

inline QString toQt(const std::string& text) {
    return QString::fromStdString(text);
}

/// One sentence after the other; either may be empty.
inline std::string inARow(const std::string& first, const std::string& then) {
    return first.empty() ? then : then.empty() ? first : words("%1 %2", first, then);
}

}  // namespace kzq
