#pragma once

#include <ostream>

#include "description.h"

namespace kzq::manual {

// The completions of a program's commands and options, one function per shell.

void writeBash(std::ostream& out, const ProgramText& program);
void writeZsh(std::ostream& out, const ProgramText& program);
void writeFish(std::ostream& out, const ProgramText& program);

}  // namespace kzq::manual
