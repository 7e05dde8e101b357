#include "audio/conversion_failures.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <system_error>

namespace kzq {
namespace {

std::string sentenceFor(ConversionFailure reason, const std::string& detail) {
    switch (reason) {
        case ConversionFailure::notAFile:
            return detail;
        case ConversionFailure::unreadable:
            return "The file cannot be read: " + detail + ".";
        case ConversionFailure::notAudio:
            return "The file is not audio, or its format is not supported. Use WAV, AIFF, FLAC, MP3, M4A, "
                   "AAC or AC3.";
        case ConversionFailure::unsupported:
            return "This audio format is not supported: " + detail + ".";
        case ConversionFailure::truncatedOrCorrupt:
            return "The file is damaged or incomplete.";
        case ConversionFailure::noFrames:
            return "The file contains no audio.";
        case ConversionFailure::sampleRate:
            return "The file's sample rate is " + detail + " Hz; it must be from 4,000 to 768,000 Hz.";
        case ConversionFailure::diskFull:
            return "There is not enough disk space.";
        case ConversionFailure::outputRefused:
            return "The converted file cannot be written: " + detail + ".";
        case ConversionFailure::cancelled:
            return "The conversion was cancelled.";
        case ConversionFailure::timeOrMemoryLimit:
            return "Converting the file takes too much time or memory.";
        case ConversionFailure::toolMissing:
            return "The audio converter " + detail +
                   " is not installed. To install it: sudo apt install ffmpeg";
        case ConversionFailure::internal:
            return "The audio converter failed: " + detail + ".";
    }
    return {};
}

std::string message(int error) {
    return std::generic_category().message(error);
}

bool saysSo(const ChildEnd& end, const char* words) {
    return end.complaint.find(words) != std::string::npos;
}

}  // namespace

Conversion::Failure conversionFailure(ConversionFailure reason, const std::string& detail) {
    return {reason, sentenceFor(reason, detail)};
}

Conversion::Failure sourceFailure(int error) {
    if (error == ENOENT || error == ENOTDIR) {
        return conversionFailure(ConversionFailure::notAFile, "There is no such file.");
    }
    return conversionFailure(ConversionFailure::unreadable, message(error));
}

Conversion::Failure outputFailure(int error) {
    const bool full = error == ENOSPC || error == EDQUOT || error == EFBIG;
    return conversionFailure(full ? ConversionFailure::diskFull : ConversionFailure::outputRefused,
                             message(error));
}

Conversion::Failure childFailure(const ChildEnd& end, const std::string& program,
                                 ConversionFailure otherwise) {
    switch (end.how) {
        case ChildEnd::How::cancelled:
            return conversionFailure(ConversionFailure::cancelled);
        case ChildEnd::How::outOfPatience:
            return conversionFailure(ConversionFailure::timeOrMemoryLimit);
        case ChildEnd::How::notStarted:
            return end.value == ENOENT || end.value == EACCES
                       ? conversionFailure(ConversionFailure::toolMissing, program)
                       : conversionFailure(ConversionFailure::internal, message(end.value));
        case ChildEnd::How::killed:
            // A decoder crashes only on a file that no sane program wrote.
            return conversionFailure(end.value == SIGXCPU || end.value == SIGKILL
                                         ? ConversionFailure::timeOrMemoryLimit
                                         : ConversionFailure::truncatedOrCorrupt);
        case ChildEnd::How::exited:
        case ChildEnd::How::stopped:
            break;
    }
    if (saysSo(end, "Cannot allocate memory")) {
        return conversionFailure(ConversionFailure::timeOrMemoryLimit);
    }
    if (saysSo(end, "matches no streams")) {
        return conversionFailure(ConversionFailure::notAudio);
    }
    if (end.value == 127 || saysSo(end, "error while loading shared libraries") ||
        saysSo(end, "Unrecognized option") || saysSo(end, "No such filter")) {
        return conversionFailure(ConversionFailure::internal,
                                 end.complaint.substr(0, end.complaint.find('\n')));
    }
    return conversionFailure(otherwise);
}

std::string asLogLine(std::string text) {
    std::ranges::replace_if(
        text, [](unsigned char character) { return character < ' ' || character == 0x7F; }, ' ');
    return text;
}

}  // namespace kzq
