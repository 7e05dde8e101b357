#include <functional>
#include <iostream>
#include <map>
#include <string>

#include "app/program/command_line.h"
#include "completions.h"
#include "ctl/speech/command_line.h"
#include "page.h"
#include "pedal/command_line.h"
#include "release/options.h"

namespace {

using namespace kzq;
using manual::ProgramText;

constexpr const char* programs[] = {"kzq7306", "kzq7306ctl", "kzq7306-pedal", "kzq7306-release"};

ProgramText textOf(const std::string& program) {
    if (program == "kzq7306ctl") {
        const ctl::CommandLine line;
        return manual::describe(line.app, KZQ_VERSION);
    }
    if (program == "kzq7306-pedal") {
        const pedal::CommandLine line;
        return manual::describe(line.app, KZQ_VERSION);
    }
    if (program == "kzq7306-release") {
        const release::CommandLine line;
        return manual::describe(line.app, KZQ_VERSION);
    }
    const ProgramCommandLine line;
    return manual::describe(line.app, KZQ_VERSION);
}

void page(std::ostream& out, const ProgramText& program) {
    std::vector<std::string> others;
    for (const std::string other : programs) {
        if (other != program.name) {
            others.push_back(other);
        }
    }
    manual::writePage(out, program, others);
}

}  // namespace

/// kzq7306-manual KIND PROGRAM: prints the manual page ("man") or the completions for a shell.
int main(int argc, char** argv) {
    const std::map<std::string, std::function<void(std::ostream&, const ProgramText&)>> writers{
        {"man", page}, {"bash", manual::writeBash}, {"zsh", manual::writeZsh}, {"fish", manual::writeFish}};
    const auto writer = argc == 3 ? writers.find(argv[1]) : writers.end();
    if (writer == writers.end()) {
        std::cerr << "usage: kzq7306-manual man|bash|zsh|fish PROGRAM\n";
        return 2;
    }
    writer->second(std::cout, textOf(argv[2]));
    return std::cout.flush() ? 0 : 1;
}
