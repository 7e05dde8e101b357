#include "updates/windows/software_update_view.h"

#include "updates/windows/release_notes.h"

namespace kzq {
namespace {

using namespace Qt::StringLiterals;

constexpr qsizetype longestVersion = 40;  ///< of a text from the web, in a headline

QString nameOf(const std::string& version) {
    return u"7306 Loop Manager "_s + QString::fromStdString(version).simplified().left(longestVersion);
}

QString megabytes(std::uint64_t bytes) {
    constexpr std::uint64_t megabyte = 1'000'000;
    return u"%1MB"_s.arg((bytes + megabyte - 1) / megabyte);
}

double fractionOf(const UpdateStatus& status) {
    return status.total == 0 ? 0 : static_cast<double>(status.received) / static_cast<double>(status.total);
}

SoftwareUpdateView offer(const UpdateStatus& status, const std::string& current) {
    SoftwareUpdateView view;
    view.headline = nameOf(status.version) + u" is now available\u2014you have "_s +
                    QString::fromStdString(current) + u"."_s;
    view.notes = plainNotes(status.notes);
    view.cancel = u"Later"_s;
    view.cream = true;
    if (status.installable) {
        view.headline += u" Would you like to install it now?"_s;
        view.accept = u"Install"_s;
    } else {
        view.headline += u" This copy cannot update itself."_s;
        view.accept = u"Website"_s;
    }
    return view;
}

SoftwareUpdateView atWork(const UpdateStatus& status) {
    SoftwareUpdateView view;
    view.progress = fractionOf(status);
    switch (status.state) {
        case UpdateState::downloading:
            view.headline = u"Downloading "_s + nameOf(status.version) + u"\u2026"_s;
            view.detail = megabytes(status.received) + u" of "_s + megabytes(status.total) +
                          u" \u2013 %1%"_s.arg(static_cast<int>(100 * fractionOf(status)));
            view.cancel = u"Cancel"_s;
            break;
        case UpdateState::verifying:
            view.headline = u"Checking the download\u2026"_s;
            view.cancel = u"Cancel"_s;
            break;
        default:
            view.headline = u"Installing "_s + nameOf(status.version) + u"\u2026"_s;
            break;
    }
    return view;
}

/// The reason as a sentence.
QString sentence(const std::string& reason) {
    auto text = QString::fromStdString(reason).trimmed();
    if (!text.isEmpty()) {
        text[0] = text[0].toUpper();
        text += u'.';
    }
    return text;
}

/// The states that only inform.
SoftwareUpdateView notice(const QString& headline, const QString& detail) {
    SoftwareUpdateView view;
    view.headline = headline;
    view.detail = detail;
    view.accept = u"OK"_s;
    return view;
}

SoftwareUpdateView ready(const UpdateStatus& status) {
    SoftwareUpdateView view;
    view.headline = nameOf(status.version) + u" is installed. Would you like to start it now?"_s;
    view.detail = sentence(status.reason);
    view.accept = u"Restart"_s;
    view.cancel = u"Later"_s;
    view.cream = true;
    return view;
}

}  // namespace

SoftwareUpdateView softwareUpdateView(const UpdateStatus& status, const std::string& current) {
    switch (status.state) {
        case UpdateState::checking: {
            SoftwareUpdateView view;
            view.headline = u"Checking for updates\u2026"_s;
            view.cancel = u"Cancel"_s;
            return view;
        }
        case UpdateState::upToDate:
            return notice(u"You're up to date!"_s, nameOf(current) + u" is the newest version available."_s);
        case UpdateState::offered:
            return offer(status, current);
        case UpdateState::downloading:
        case UpdateState::verifying:
        case UpdateState::installing:
            return atWork(status);
        case UpdateState::ready:
            return ready(status);
        case UpdateState::handedOver:
            return notice(u"The package installer has taken over."_s,
                          u"Follow its steps, then quit this program and start it again."_s);
        case UpdateState::failed:
            return notice(u"The program could not be updated."_s, sentence(status.reason));
        case UpdateState::idle:
            break;
    }
    return {};
}

}  // namespace kzq
