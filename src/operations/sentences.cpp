#include "operations/sentences.h"

#include <cctype>
#include <cerrno>
#include <system_error>

namespace kzq {
namespace {

using Kind = Trouble::Kind;

/// "No space left on device.", or what the other side said.
std::string reasonOf(const Trouble& trouble) {
    return (trouble.error == 0 ? trouble.words : std::generic_category().message(trouble.error)) + ".";
}

std::string quoted(const Trouble& trouble) {
    return "\"" + trouble.where + "\"";
}

}  // namespace

std::string audioSentence(const Trouble& trouble) {
    switch (trouble.kind) {
        case Kind::notAFile:
            return trouble.error == 0 ? "This is a folder or a device, not a file."
                                      : "There is no such file.";
        case Kind::unreadable:
            return "The file cannot be read: " + reasonOf(trouble);
        case Kind::notAudio:
            return "The file is not audio, or its format is not supported. Use WAV, AIFF, FLAC, MP3, M4A, "
                   "AAC or AC3.";
        case Kind::unsupported:
            return "This audio format is not supported: " + trouble.words + ".";
        case Kind::damaged:
            return "The file is damaged or incomplete.";
        case Kind::noSound:
            return "The file contains no audio.";
        case Kind::sampleRate:
            return "The file's sample rate is " + trouble.words + " Hz; it must be from 4,000 to 768,000 Hz.";
        case Kind::diskFull:
            return "There is not enough disk space.";
        case Kind::outputRefused:
            return "The converted file cannot be written: " + reasonOf(trouble);
        case Kind::cancelled:
            return "The conversion was cancelled.";
        case Kind::limits:
            return "Converting the file takes too much time or memory.";
        case Kind::toolMissing:
            return "The audio converter " + trouble.words +
                   " is not installed. To install it: sudo apt install ffmpeg";
        case Kind::noTemporaryFolder:
            return "There is no folder for temporary files.";
        default:
            return "The audio converter failed: " + reasonOf(trouble);
    }
}

std::string conversionSentence(const Trouble& trouble, const std::string& name) {
    std::string file = name.empty() ? quoted(trouble) : name;
    if (trouble.kind != Kind::notAudio) {
        return "Could not convert " + file + ". " + audioSentence(trouble);
    }
    file.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(file.front())));
    return file + " is in a format that is not supported. Use WAV, AIFF, FLAC, MP3, M4A, AAC or AC3.";
}

std::string simulationSentence(const Trouble& trouble) {
    switch (trouble.kind) {
        case Kind::folder:
            return trouble.error == ENOENT
                       ? "There is no folder " + quoted(trouble) + ". Create it, or check the name."
                       : "The folder " + trouble.where + " cannot be read: " + reasonOf(trouble);
        case Kind::noLoop:
            return trouble.where + " is not a file with a loop in it.";
        case Kind::file:
            return trouble.where + " cannot be read.";
        case Kind::otherFormat:
            return trouble.where +
                   " is not a 24-bit stereo WAV file of 44,100 Hz with a plain header. Convert it "
                   "with \"kzq7306ctl convert\".";
        case Kind::twoFiles:
            return "Two files for slot " + trouble.words + ".";
        case Kind::noRoom:
            return "The loops in " + trouble.where + " are longer than the pedal's 24 minutes.";
        case Kind::badFault:
            return "--fault " + quoted(trouble) +
                   " is not of the form KIND@WHERE[:COUNT][+], such as unplug@in:100.";
        case Kind::badAddress:
            return trouble.error == 0
                       ? quoted(trouble) + " is not of the form ADDRESS:PORT, such as 127.0.0.1:3240."
                       : "cannot listen on " + trouble.where + ": " + reasonOf(trouble);
        default:
            return "Could not convert " + quoted(trouble) + ". " + audioSentence(trouble);
    }
}

std::string recordingSentence(const Trouble& trouble) {
    return trouble.error == EEXIST ? quoted(trouble) + " already exists; a recording never overwrites a file."
                                   : quoted(trouble) + " cannot be created: " + reasonOf(trouble);
}

std::string recordingEndSentence(const Trouble& trouble) {
    return "The recording cannot be written and ends here: " + reasonOf(trouble);
}

}  // namespace kzq
