#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string_view>

#include "device/recorder/session_recorder.h"
#include "device/usb_port.h"
#include "platform/executor.h"
#include "platform/result.h"

namespace kzq {

/// A port, and what records the calls to it.
struct RecordedBus {
    std::unique_ptr<UsbPort> port;
    std::function<void(std::string_view)> note;  ///< for human readers; any thread
};

/// Records all that goes over `port` in a new file. `ended` is called on the main thread if that cannot go
/// on. Executor and port outlive it.
Result<RecordedBus> recordedBus(Executor& executor, UsbPort& port, const std::filesystem::path& file,
                                std::function<void(const Trouble&)> ended);

}  // namespace kzq
