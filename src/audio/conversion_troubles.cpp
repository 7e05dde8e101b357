#include "audio/conversion_troubles.h"

#include <algorithm>
#include <cerrno>
#include <csignal>

namespace kzq {
namespace {

using Kind = Trouble::Kind;

bool saysSo(const ChildEnd& end, const char* words) {
    return end.complaint.find(words) != std::string::npos;
}

}  // namespace

Trouble outputTrouble(const Trouble& failure) {
    const bool full = failure.error == ENOSPC || failure.error == EDQUOT || failure.error == EFBIG;
    return {full ? Kind::diskFull : Kind::outputRefused, {}, failure.error};
}

Trouble childTrouble(const ChildEnd& end, const std::string& program, Kind otherwise) {
    switch (end.how) {
        case ChildEnd::How::cancelled:
            return {Kind::cancelled};
        case ChildEnd::How::outOfPatience:
            return {Kind::limits};
        case ChildEnd::How::notStarted:
            return end.value == ENOENT || end.value == EACCES ? Trouble{Kind::toolMissing, {}, 0, program}
                                                              : Trouble{Kind::decoder, {}, end.value};
        case ChildEnd::How::killed:
            // A decoder crashes only on a file that no sane program wrote.
            return {end.value == SIGXCPU || end.value == SIGKILL ? Kind::limits : Kind::damaged};
        case ChildEnd::How::exited:
        case ChildEnd::How::stopped:
            break;
    }
    if (saysSo(end, "Cannot allocate memory")) {
        return {Kind::limits};
    }
    if (saysSo(end, "matches no streams")) {
        return {Kind::notAudio};
    }
    if (end.value == 127 || saysSo(end, "error while loading shared libraries") ||
        saysSo(end, "Unrecognized option") || saysSo(end, "No such filter")) {
        return {Kind::decoder, {}, 0, end.complaint.substr(0, end.complaint.find('\n'))};
    }
    return {otherwise};
}

std::string asLogLine(std::string text) {
    std::ranges::replace_if(
        text, [](unsigned char character) { return character < ' ' || character == 0x7F; }, ' ');
    return text;
}

}  // namespace kzq
