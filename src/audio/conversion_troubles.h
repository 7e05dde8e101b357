#pragma once

#include <string>

#include "audio/locked_child.h"
#include "platform/trouble.h"

namespace kzq {

/// What the failure of a draft means for a conversion's output.
Trouble outputTrouble(const Trouble& failure);

/// What a child's failure means. `otherwise` is the kind if it ran normally and merely rejected the source.
Trouble childTrouble(const ChildEnd& end, const std::string& program, Trouble::Kind otherwise);

/// `text` as one line, whatever a file name or a decoder's message contains.
std::string asLogLine(std::string text);

}  // namespace kzq
