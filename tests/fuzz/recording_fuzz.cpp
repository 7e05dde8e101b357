// Feeds hostile recordings to their reader. What it takes can be written and read again, and an analyser can
// walk through the capture that is made of it.

#include <map>

#include "device/recorder/call_words.h"
#include "device/recorder/pcapng.h"
#include "device/recorder/recording.h"
#include "fuzz_check.h"
#include "platform/bytes.h"
#include "platform/little_endian.h"

namespace {

using namespace kzq::recorder;
using Kind = RecordedEvent::Kind;

/// As it was written when it was made.
std::string textOf(const Recording& recording) {
    std::ostringstream text;
    std::map<unsigned, std::string> calls;
    text << recordingHeader << '\n';
    for (const auto& event : recording.events) {
        text << event.time.count() << ' ';
        if (event.kind == Kind::call) {
            text << event.number << ' ' << (calls[event.number] = event.words) << '\n';
        } else if (event.kind == Kind::result) {
            const auto verb = calls.at(event.number).substr(0, calls.at(event.number).find(' '));
            text << event.number << " = " << event.result
                 << (verb == "in" || verb == "out" ? " " + std::to_string(event.transferred) : "")
                 << (verb == "in" || verb == "control" ? " " + hexText(event.bytes) : "") << '\n';
        } else {
            const auto* const word = event.kind == Kind::there  ? "there "
                                     : event.kind == Kind::left ? "left "
                                                                : "arrived ";
            text << word << event.device << ' ' << event.number << '\n';
        }
    }
    return text.str();
}

void walk(const Recording& recording, bool audio) {
    std::ostringstream out;
    writePcapng(out, recording, audio);
    const auto text = out.str();
    const kzq::Bytes bytes(text.begin(), text.end());
    for (std::size_t at = 0; at < bytes.size();) {
        const auto rest = kzq::ByteView(bytes).subspan(at);
        const std::size_t length = rest.size() < 12 ? 0 : kzq::loadU32(rest, 4);
        require(length >= 12 && length % 4 == 0 && length <= rest.size() &&
                    kzq::loadU32(rest, length - 4) == length,
                "a block lies inside, and has its length at both ends");
        if (kzq::loadU32(rest) == 6) {
            const auto moved = kzq::loadU32(rest, 28 + 32);
            const auto data = kzq::loadU32(rest, 28 + 36);
            require(kzq::loadU32(rest, 20) == 64 + data && 32 + 64 + data <= length && data <= moved,
                    "data as told");
            require(audio || data == 0 || rest[28 + 9] == 2, "without audio there is none");
        }
        at += length;
    }
}

void check(const std::string& text) {
    std::istringstream file(text);
    if (const auto recording = readRecording(file)) {
        const auto written = textOf(*recording);
        std::istringstream again(written);
        const auto reread = readRecording(again);
        require(reread && textOf(*reread) == written, "what was read can be written and read");
        walk(*recording, true);
        walk(*recording, false);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t size) {
    const std::string text(input, input + size);
    check(text);
    check(std::string(recordingHeader) +
          "\n0 1 register arrived 308a 0104 -1 1\n0 2 control 1 e1 2a 0003 00ff 2\n0 3 in 1 81 4\n0 4 out 1 "
          "02 3 aabbcc\n" +
          text);
    return 0;
}
