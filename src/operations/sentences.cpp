#include "operations/sentences.h"

#include <cctype>
#include <cerrno>

#include "loops/facts.h"
#include "platform/system_reason.h"
#include "words/words.h"

namespace kzq {
namespace {

using Kind = Trouble::Kind;

constexpr const char* toolKinds =
    "Use WAV, AIFF, FLAC, MP3, M4A, AAC, AC3, Ogg Vorbis, Opus, WavPack, W64, RF64 or CAF.";

/// "No space left on device", or what the other side said.
std::string englishReason(const Trouble& trouble) {
    return trouble.error == 0 ? trouble.words : systemReason(trouble.error);
}

std::string saidReason(const Trouble& trouble) {
    return words(englishReason(trouble).c_str());
}

/// As the end of a sentence that only a terminal shows.
std::string reasonOf(const Trouble& trouble) {
    return englishReason(trouble) + ".";
}

std::string quoted(const Trouble& trouble) {
    return "\"" + trouble.where + "\"";
}

/// The number that stands in its words, as "1,234".
std::string grouped(const Trouble& trouble) {
    std::string text = trouble.words;
    for (auto at = static_cast<std::ptrdiff_t>(text.size()) - 3; at > 0; at -= 3) {
        text.insert(static_cast<std::size_t>(at), words(","));  // between thousands
    }
    return text;
}

}  // namespace

std::string fileRemedy(int error) {
    switch (error) {
        case ENOSPC:
        case EDQUOT:
            return words("Free some space or choose another folder.");
        case ENAMETOOLONG:
            return words("Choose a shorter name.");
        case EFBIG:
            return words("Choose a folder that allows files of this size.");
        case ENOENT:
            return words("Choose a folder that exists.");
        case EROFS:
        case EACCES:
        case EPERM:
            return words("Choose a folder that you can write to.");
        default:
            return "";
    }
}

std::string fileSentence(const Trouble& trouble) {
    return inTurn(words("%1.", saidReason(trouble)), fileRemedy(trouble.error));
}

std::string notSavedSentence(const std::string& what, const std::filesystem::path& folder,
                             const Trouble& trouble) {
    return words("%1 was not saved: could not write to %2: %3", what, folder.string(), fileSentence(trouble));
}

std::string folderSentence(const Trouble& trouble) {
    const auto folder = "folder " + quoted(trouble);
    if (trouble.words == "folder") {
        return "The " + folder + " cannot be created: " + reasonOf(trouble);
    }
    if (trouble.words == "files") {
        return "No files can be created in the " + folder + ": " + reasonOf(trouble) +
               " Choose a folder that you can write to.";
    }
    if (trouble.error == ENOTDIR) {
        return quoted(trouble) + " is not a folder. Choose a folder for the files.";
    }
    return trouble.error == ENOENT ? "The " + folder + " does not exist, and neither does its parent folder."
                                   : "The " + folder + ": " + reasonOf(trouble);
}

std::string spaceSentence(const Trouble& trouble) {
    return words("There is too little space in \"%1\": %2. Make room or choose another folder.",
                 trouble.where, trouble.words);
}

std::string flawWords(const Trouble& flaw) {
    if (flaw.kind == Kind::endsEarly) {
        return flaw.words.empty() ? words("its end is missing")
                                  : words("%1 ms are missing at its end", grouped(flaw));
    }
    return flaw.words.empty() ? words("part of it cannot be read")
                              : words("%1 ms of it cannot be read", grouped(flaw));
}

std::string audioSentence(const Trouble& trouble) {
    switch (trouble.kind) {
        case Kind::notAFile:
            return words(trouble.error == 0 ? "This is a folder or a device, not a file."
                                            : "There is no such file.");
        case Kind::unreadable:
            return words("The file cannot be read: %1.", saidReason(trouble));
        case Kind::notAudio:
            return words(
                "The file is not audio, or its format is not supported. Use WAV, AIFF, FLAC, MP3, M4A, "
                "AAC or AC3.");
        case Kind::unsupported:
            return words("This audio format is not supported: %1. Use WAV, AIFF, FLAC, MP3, M4A, AAC or AC3.",
                         words(trouble.words.c_str()));
        case Kind::damaged:
            return words("The file is damaged or incomplete.");
        case Kind::endsEarly:
        case Kind::broken:
            return words("The file is damaged or incomplete: %1.", flawWords(trouble));
        case Kind::noSound:
            return words("The file contains no audio.");
        case Kind::sampleRate:
            return words("The file's sample rate is %1 Hz; it must be from 4,000 to 768,000 Hz.",
                         grouped(trouble));
        case Kind::diskFull:
            return words("There is not enough disk space.");
        case Kind::outputRefused:
            return words("The converted file cannot be written: %1", fileSentence(trouble));
        case Kind::cancelled:
            return words("The conversion was cancelled.");
        case Kind::limits:
            return words("Converting the file takes too much time or memory.");
        case Kind::toolMissing:
            return words("The audio converter %1 is not installed. To install it: sudo apt install ffmpeg",
                         trouble.words);
        case Kind::noTemporaryFolder:
            return trouble.words.empty() ? words("There is no folder for temporary files.")
                                         : "There is no folder for " + trouble.words + ".";
        default:
            return words("The audio converter failed: %1.", saidReason(trouble));
    }
}

std::string conversionSentence(const Trouble& trouble, const std::string& name) {
    if (trouble.kind == Kind::inputLost) {
        return "Could not read standard input: " +
               (trouble.error == 0 ? "it is longer than 4 GiB." : fileSentence(trouble));
    }
    if (trouble.kind == Kind::outputLost) {
        return "Could not write to standard output.";
    }
    if (trouble.where.empty()) {
        return audioSentence(trouble);
    }
    std::string file = name.empty() ? quoted(trouble) : name;
    const std::string failed = "Could not convert " + file + ". ";
    if (trouble.kind == Kind::endsEarly || trouble.kind == Kind::broken) {
        return failed + audioSentence(trouble) + " To convert what there is of it, add --salvage.";
    }
    if (trouble.kind == Kind::unsupported) {
        return failed + "This audio format is not supported: " + trouble.words + ". " + toolKinds;
    }
    if (trouble.kind != Kind::notAudio) {
        return failed + audioSentence(trouble);
    }
    file.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(file.front())));
    return file + " is in a format that is not supported. " + toolKinds;
}

std::string slotsSentence(const Trouble& trouble) {
    return trouble.kind == Kind::noSuchSlot
               ? "There is no slot " + trouble.where + "; slots are numbered 1 to " +
                     std::to_string(loopSlots) + "."
               : quoted(trouble) + " is not a slot or a range such as 3-5.";
}

std::string firmwareSentence(const Trouble& trouble) {
    switch (trouble.kind) {
        case Kind::noServer:
            return words(
                "The update server could not be reached (%1). Check the internet connection and try "
                "again.",
                words(trouble.words.c_str()));
        case Kind::untrustedServer:
            return words(
                "The update server could not prove its identity (%1). Check the computer's clock and "
                "its certificates.",
                words(trouble.words.c_str()));
        case Kind::oddAnswer:
            return words("The update server did not answer as expected (%1). Try again later.",
                         words(trouble.words.c_str()));
        case Kind::badManifest:
            return words("The update server did not list any usable firmware. Try again later.");
        case Kind::noCache:
            return "Could not create the folder for downloaded firmware in your home folder.";
        case Kind::unverified:
            return "The firmware could not be downloaded, verified and stored. Try again later; --verbose "
                   "shows details.";
        case Kind::unknownVersion:
            return "The pedal reports an unknown firmware version (" + trouble.words +
                   "), so it cannot be compared with the newest.";
        case Kind::imageEmpty:
            return quoted(trouble) + " is empty.";
        case Kind::imageTooLong:
            return quoted(trouble) + " is larger than firmware can be (50,000,000 bytes).";
        default:
            return quoted(trouble) + " cannot be read.";
    }
}

std::string roadSentence(const Trouble& trouble) {
    const auto why =
        words(trouble.kind == Kind::roadNotInstalled
                  ? "this computer did not pass the request on to the pedal: the udev "
                    "rules for it are not installed."
              : trouble.kind == Kind::roadNotInForce ? "this computer did not pass the request on to the "
                                                       "pedal: the kernel's usbtmc driver, which it needs, "
                                                       "does not know the pedal."
                                                     : "this computer did not pass the request on to the "
                                                       "pedal: the file of the kernel's usbtmc driver "
                                                       "could not be opened in time.");
    return inTurn(why, trouble.remedy.empty() ? words("Run \"kzq7306ctl doctor\" to see how to fix it.")
                                              : words("Run: %1", trouble.remedy));
}

std::string firmwareListSentence(const std::string& read, const std::optional<Trouble>& trouble) {
    const auto when = read.empty() ? words("The maker's list of firmware has not been read yet.")
                                   : words("The maker's list of firmware was last read at %1.", read);
    return trouble ? inTurn(firmwareSentence(*trouble), when) : when;
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
                       : "The pedal cannot be offered at " + trouble.where + ": " + reasonOf(trouble) +
                             (trouble.remedy.empty() ? "" : " Run: " + trouble.remedy);
        default:
            return "Could not convert " + quoted(trouble) + ". " + audioSentence(trouble);
    }
}

std::string recordingSentence(const Trouble& trouble) {
    return trouble.error == EEXIST ? quoted(trouble) + " already exists; a recording never overwrites a file."
                                   : quoted(trouble) + " cannot be created: " + reasonOf(trouble);
}

std::string recordingEndSentence(const Trouble& trouble) {
    return words("The recording cannot be written and ends here: %1.", saidReason(trouble));
}

std::string badRecordingSentence(const Trouble& trouble) {
    switch (trouble.kind) {
        case Kind::badRecording:
            return quoted(trouble) + " is not a recording that can be used: " + reasonOf(trouble);
        case Kind::file:
            return quoted(trouble) + " cannot be written: " + fileSentence(trouble);
        default:
            return quoted(trouble) + " cannot be read: " + audioSentence(trouble);
    }
}

}  // namespace kzq
