#include "updates/windows/software_update_view.h"

#include "updates/windows/release_notes.h"
#include "words/words.h"

namespace kzq {
namespace {

constexpr qsizetype longestVersion = 40;  ///< of a text from the web, in a headline

QString text(const std::string& words) {
    return QString::fromStdString(words);
}

std::string nameOf(const std::string& version) {
    return "7306 Loop Manager " + text(version).simplified().left(longestVersion).toStdString();
}

std::string megabytes(std::uint64_t bytes) {
    constexpr std::uint64_t megabyte = 1'000'000;
    return words("%1 MB", (bytes + megabyte - 1) / megabyte);
}

double fractionOf(const UpdateStatus& status) {
    return status.total == 0 ? 0 : static_cast<double>(status.received) / static_cast<double>(status.total);
}

SoftwareUpdateView offer(const UpdateStatus& status, const std::string& current) {
    SoftwareUpdateView view;
    view.headline = text(words(status.installable
                                   ? "%1 is now available\u2014you have %2. Would you like to install it now?"
                                   : "%1 is now available\u2014you have %2. This copy cannot update itself.",
                               nameOf(status.version), current));
    view.notes = plainNotes(status.notes);
    view.accept = text(words(status.installable ? "Install" : "Website"));
    view.cancel = text(words("Later"));
    view.cream = true;
    return view;
}

SoftwareUpdateView atWork(const UpdateStatus& status) {
    SoftwareUpdateView view;
    view.progress = fractionOf(status);
    switch (status.state) {
        case UpdateState::downloading:
            view.headline = text(words("Downloading %1\u2026", nameOf(status.version)));
            view.detail = text(words("%1 of %2 \u2013 %3 %", megabytes(status.received),
                                     megabytes(status.total), static_cast<int>(100 * fractionOf(status))));
            view.cancel = text(words("Cancel"));
            break;
        case UpdateState::verifying:
            view.headline = text(words("Checking the download\u2026"));
            view.cancel = text(words("Cancel"));
            break;
        default:
            view.headline = text(words("Installing %1\u2026", nameOf(status.version)));
            break;
    }
    return view;
}

/// The reason as a sentence.
QString sentence(const std::string& reason) {
    const auto phrase = text(reason).trimmed().toStdString();
    return phrase.empty() ? QString() : text(capital(words("%1.", phrase)));
}

/// The states that only inform.
SoftwareUpdateView notice(const std::string& headline, const QString& detail) {
    SoftwareUpdateView view;
    view.headline = text(headline);
    view.detail = detail;
    view.accept = text(words("OK"));
    return view;
}

SoftwareUpdateView ready(const UpdateStatus& status) {
    SoftwareUpdateView view;
    view.headline = text(words("%1 is installed. Would you like to start it now?", nameOf(status.version)));
    view.detail = sentence(status.reason);
    view.accept = text(words("Restart"));
    view.cancel = text(words("Later"));
    view.cream = true;
    return view;
}

}  // namespace

SoftwareUpdateView softwareUpdateView(const UpdateStatus& status, const std::string& current) {
    switch (status.state) {
        case UpdateState::checking: {
            SoftwareUpdateView view;
            view.headline = text(words("Checking for updates\u2026"));
            view.cancel = text(words("Cancel"));
            return view;
        }
        case UpdateState::upToDate:
            return notice(words("You're up to date!"),
                          text(words("%1 is the newest version available.", nameOf(current))));
        case UpdateState::offered:
            return offer(status, current);
        case UpdateState::downloading:
        case UpdateState::verifying:
        case UpdateState::installing:
            return atWork(status);
        case UpdateState::ready:
            return ready(status);
        case UpdateState::handedOver:
            return notice(words("The package installer has taken over."),
                          text(words("Follow its steps, then quit this program and start it again.")));
        case UpdateState::failed:
            return notice(words("The program could not be updated."), sentence(status.reason));
        case UpdateState::idle:
            break;
    }
    return {};
}

}  // namespace kzq
