#pragma once

#include <ostream>

#include "description.h"

namespace kzq::manual {

/// The manual page, for man(7).
void writePage(std::ostream& out, const ProgramText& program, const std::vector<std::string>& seeAlso);

}  // namespace kzq::manual
