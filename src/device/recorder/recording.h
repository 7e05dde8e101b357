#pragma once

#include <chrono>
#include <cstdint>
#include <istream>
#include <string>
#include <string_view>
#include <vector>

#include "platform/result.h"

namespace kzq::recorder {

/// The first line of a recording; the number is the format version. See doc/usb.md.
inline constexpr std::string_view recordingHeader = "kzq7306-usb-recording 1";

/// What happened at the port, one line of a recording.
struct RecordedEvent {
    enum class Kind {
        call,
        result,
        there,    ///< a device was announced during the registration
        arrived,  ///< ... or by the event thread
        left
    };

    Kind kind = Kind::call;
    std::size_t line = 0;  ///< in the file, from 1
    std::chrono::microseconds time{};
    unsigned number = 0;          ///< of the call: its own, the one that ends, or the registration notified
    std::string words = {};       ///< call: its name and arguments
    unsigned device = 0;          ///< there, arrived, left
    int result = 0;               ///< a count of bytes, or a UsbResult error
    std::size_t transferred = 0;  ///< of a bulk transfer
    std::vector<std::uint8_t> bytes = {};  ///< the reply to a request, all of it; the data that came in
};

struct Recording {
    std::vector<RecordedEvent> events;
};

/// badRecording, if it is not valid and complete: `where` is the line, such as "line 3", and `words` says
/// what is wrong with it.
Result<Recording> readRecording(std::istream& file);

}  // namespace kzq::recorder
