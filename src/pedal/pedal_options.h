#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "device/simulator/fault_plan.h"

namespace kzq::pedal {

struct Options {
    std::string place = "127.0.0.1:3240";  ///< where to listen; empty: nowhere
    bool attach = false;                   ///< plug the pedal into this computer
    std::string gadget;                    ///< where GadgetFS is mounted; empty: the pedal is none
    std::string usbredir;                  ///< the socket at which QEMU listens; empty: none does
    std::string folder;                    ///< of WAV files; empty: the demonstration's loops
    std::vector<simulator::Fault> faults;
    std::map<std::uint8_t, std::uint8_t> channels;  ///< by address
    std::string firmware = "1.05";
    char stage = 'p';
};

/// What to do: run with `options`, or print `text` and end with `status`.
struct ParsedOptions {
    bool run = false;
    Options options;
    std::string text;
    int status = 0;
};

ParsedOptions parseOptions(int argc, char** argv);

}  // namespace kzq::pedal
