#include "app/firmware_notices.h"

#include <QString>
#include <utility>

#include "app/app_parts.h"
#include "app/firmware_flow.h"
#include "device/kzq7306.h"
#include "ui/qt_words.h"

namespace kzq {

namespace {

using Kind = FirmwareNotice::Kind;

constexpr auto repairJob = "repair";

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
    FirmwareNotice notice{
        .kind = kindOf(end, told),
        .headline = toQt(told.why.empty() ? told.what : words("%1: %2", told.what, told.why)),
        .detail = toQt(told.detail),
        .decline = toQt(told.failure ? words("Close") : words("OK"))};
    if (notice.kind != Kind::missing) {
        notice.headline = toQt(words("%1.", notice.headline.toStdString()));
    }
    if (again) {
        notice.accept = toQt(words("Try Again"));
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
    parts_.teller.tell(
        {.what = words("The pedal is waiting for firmware"),
         .detail = words("It runs only its loader, as after an installation that did not finish."),
         .failure = true},
        repairJob, {words("Repair"), [this] {
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
        const auto say = [&](auto percent) {
            return news.total == 0 ? "" : words("Downloading firmware %1, %2 %", news.newest, percent);
        };
        parts_.teller.background(say(part), say(part / 25 * 25));
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
    FirmwareNotice notice{
        .kind = Kind::repair, .headline = toQt(words("This pedal is waiting for firmware.")), .detail = {}};
    auto detail = words(
        "It runs only its loader, as after an installation that did not finish. Until it has "
        "firmware, its loops cannot be listed.");
    if (version.empty()) {
        detail = inTurn(detail, words("The maker's firmware has not been downloaded yet."));
        notice.decline = toQt(words("Close"));
    } else {
        notice.headline +=
            QChar(QChar::LineSeparator) + toQt(words("Would you like to install %1 now?", version));
        notice.decline = toQt(words("Not Now"));
        notice.accept = toQt(words("Install"));
        notice.accepted = [&parts = parts_] { beginOfferedFirmware(parts); };
    }
    notice.detail = toQt(detail);
    parts_.panels.firmwareNotice->show(std::move(notice));
}

}  // namespace kzq
