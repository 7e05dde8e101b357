#pragma once

#include <cstdint>
#include <functional>
#include <ostream>

#include "ctl/exit_codes.h"
#include "device/usb_port.h"
#include "platform/executor.h"

namespace kzq::ctl {

/// What the tool runs on; all of it outlives the tool.
struct Environment {
    Executor& executor;
    UsbPort& usb;
    std::ostream& out;
    std::ostream& err;
    bool terminal = false;  ///< whether `out` is one
    std::function<std::uint64_t()> systemMinorVersion;
    std::function<bool()> ruleInstalled;     ///< whether the system has the pedal's udev rule
    std::function<void(ExitCode)> finished;  ///< called once, on the main thread
};

}  // namespace kzq::ctl
