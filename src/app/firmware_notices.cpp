#include "app/firmware_notices.h"

#include <QString>
#include <utility>

#include "app/app_parts.h"
#include "app/firmware_flow.h"
#include "device/kzq7306.h"

namespace kzq {

namespace {

using Kind = FirmwareNotice::Kind;

constexpr auto repairJob = "repair";

QString text(const std::string& words) {
    return QString::fromStdString(words);
}

Kind kindOf(const FlashEnd& end, const Told& told) {
    if (!told.failure) {
        return Kind::runs;
    }
    return end.how == FlashEnd::How::unconfirmed ? Kind::missing : Kind::failed;
}

}  // namespace

unsigned FirmwareNotices::begins() {
    ++installations_;
    endRepair();
    parts_.panels.firmwareNotice->close();
    return ++latest_;
}

void FirmwareNotices::ended(const FlashEnd& end, const Told& told, bool again) {
    FirmwareNotice notice{.kind = kindOf(end, told),
                          .headline = text(told.why.empty() ? told.what : told.what + ": " + told.why),
                          .detail = text(told.detail),
                          .decline = told.failure ? "Close" : "OK"};
    if (notice.kind != Kind::missing) {
        notice.headline += '.';
    }
    if (again) {
        notice.accept = "Try Again";
        notice.accepted = [&parts = parts_] { beginOfferedFirmware(parts); };
    }
    notice.declined = [this] { newsChanged(); };
    parts_.panels.firmwareNotice->show(std::move(notice));
    const bool storing = end.how == FlashEnd::How::unconfirmed;  // perhaps
    if (end.how == FlashEnd::How::inLoader || (!storing && inLoader())) {
        pedalWaits();
    }
}

void FirmwareNotices::isOver() {
    if (--installations_ == 0 && inLoader()) {
        pedalWaits();
    }
}

bool FirmwareNotices::inLoader() const {
    const auto looper = parts_.environment.link();
    return looper && !looper->disconnected() && looper->factoryBlank();
}

/// The repair is offered now if there is an image, or else once there is; after an ending, once the user has
/// closed that.
void FirmwareNotices::pedalWaits() {
    if (waiting_) {
        return;
    }
    waiting_ = true;
    asked_ = false;
    parts_.teller.tell({.what = "The pedal is waiting for firmware",
                        .detail = "It runs only its loader, as after an installation that did not finish.",
                        .failure = true},
                       repairJob, {"Repair", [this] {
                                       offerRepair();
                                       return false;  // the pedal goes on waiting
                                   }});
    newsChanged();
}

void FirmwareNotices::arrived(char stage) {
    if (stage != stageFactoryBlank || installations_ != 0) {
        endRepair();
        return;
    }
    waiting_ = false;  // it may be another one
    pedalWaits();
}

void FirmwareNotices::left() {
    endRepair();
}

void FirmwareNotices::endRepair() {
    waiting_ = false;
    parts_.teller.settle(repairJob);
    auto& notice = *parts_.panels.firmwareNotice;
    if (notice.shown() == Kind::repair) {
        notice.close();
    }
}

std::string FirmwareNotices::offered() const {
    const auto& updater = parts_.panels.firmwareUpdater;
    return updater ? updater->updates()->news().offered : "";
}

void FirmwareNotices::newsChanged() {
    if (const auto& updater = parts_.panels.firmwareUpdater) {
        const auto news = updater->updates()->news();
        const auto part = news.total == 0 ? 0 : 100 * news.received / news.total;
        const auto words = [&](auto percent) {
            return "Downloading firmware " + news.newest + ", " + std::to_string(percent) + " %";
        };
        parts_.teller.background(news.total == 0 ? "" : words(part),
                                 news.total == 0 ? "" : words(part / 25 * 25));
    }
    const auto shown = parts_.panels.firmwareNotice->shown();
    const bool open = shown == Kind::repair;
    const auto version = offered();
    if (waiting_ && (open || !shown) && (asked_ ? open && version != askedAbout_ : !version.empty())) {
        offerRepair();
    }
}

/// Without a verified image there is nothing to install.
void FirmwareNotices::offerRepair() {
    const auto version = offered();
    asked_ = true;
    askedAbout_ = version;
    FirmwareNotice notice{.kind = Kind::repair,
                          .headline = "This pedal is waiting for firmware.",
                          .detail =
                              "It runs only its loader, as after an installation that did not finish. "
                              "Until it has firmware, its loops cannot be listed."};
    if (version.empty()) {
        notice.detail += " The maker's firmware has not been downloaded yet.";
        notice.decline = "Close";
    } else {
        notice.headline +=
            QChar(QChar::LineSeparator) + text("Would you like to install " + version + " now?");
        notice.decline = "Not Now";
        notice.accept = "Install";
        notice.accepted = [&parts = parts_] { beginOfferedFirmware(parts); };
    }
    parts_.panels.firmwareNotice->show(std::move(notice));
}

}  // namespace kzq
