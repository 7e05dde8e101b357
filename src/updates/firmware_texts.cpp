#include "updates/firmware_texts.h"

#include "words/words.h"

namespace kzq {
namespace {

std::string shown(const FirmwareVersion& version) {
    std::string text = std::to_string(version.major) + "." + std::to_string(version.minor);
    if (version.suffix != 0) {
        text += static_cast<char>(version.suffix);
    }
    return text;
}

}  // namespace

std::string firmwareHeadline(const FirmwareVersion& offered, const FirmwareVersion& device) {
    return words("KZQ7306 %1 is now available\u2014you have %2. Would you like to install it now?",
                 shown(offered), shown(device));
}

std::string firmwareNotes(const std::vector<std::string>& changes) {
    std::string text = notesBullet;
    for (std::size_t i = 0; i < changes.size(); ++i) {
        if (i > 0) {
            text += "\n";
            text += notesBullet;
        }
        text += changes[i];
    }
    return text;
}

}  // namespace kzq
