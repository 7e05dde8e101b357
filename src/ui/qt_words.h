#pragma once

#include <QString>
#include <string>

#include "words/words.h"

namespace kzq {

inline QString toQt(const std::string& text) {
    return QString::fromStdString(text);
}

}  // namespace kzq
