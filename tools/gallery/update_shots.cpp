#include <QLabel>

#include "bystanders.h"
#include "operations/flash.h"
#include "panel_shots.h"
#include "stage.h"
#include "updates/windows/firmware_notice.h"
#include "updates/windows/firmware_updater.h"
#include "updates/windows/firmware_updater_progress.h"
#include "updates/windows/lamp_bar.h"
#include "updates/windows/notes_view.h"
#include "updates/windows/software_update.h"

namespace kzq::gallery {

namespace {

constexpr auto shortNotes =
    "\u2022\tOverdubs keep their level when the loop is shorter than a bar.\n"
    "\u2022\tTempo is kept when a loop is erased and recorded again.\n"
    "\u2022\tUSB transfers no longer pause while the pedal plays.\n"
    "\u2022\tThe channel light shows the part that is recording.";

const std::string feed =
    R"(<rss version="2.0" xmlns:s="urn:s"><channel><item><title>3.0</title>
<description><![CDATA[<ul><li>Loops can be renamed on the export tab.</li><li>Faster transfers.</li></ul>]]></description>
<enclosure url="https://www.kzq.example/kzq7306.AppImage" length="40000000" s:version="3000" s:shortVersionString="3.0"
 s:edSignature=")" +
    std::string(86, 'A') + R"(=="/></item></channel></rss>)";

Shot firmwareOffer(const QString& caption, int times) {
    StillExecutor executor;
    StillHttp http;
    FirmwareEnvironment environment{.executor = executor,
                                    .http = http,
                                    .factoryBlank = [] { return false; },
                                    .version = [] { return std::optional<std::string>("1.05"); },
                                    .softwareVersion = "2.1.0",
                                    .home = {},
                                    .server = {},
                                    .showHeadline = {},
                                    .appendNotes = {}};
    const auto updater = FirmwareUpdater::updater(std::move(environment));
    updater->blurb().setText(
        "KZQ7306 1.6 is now available\u2014you have 1.5. Would you like to install it now?");
    for (int i = 0; i < times; ++i) {
        updater->notes().appendNotes(shortNotes);
    }
    return shoot(caption, updater->window());
}

Shot flashing(double part, const FlashStep& step) {
    StillExecutor executor;
    const auto progress = FirmwareUpdaterProgress::progress(executor);
    progress->slider().setDoubleValue(part);
    const auto words = QString::fromStdString(step.words);
    progress->setStep(step.number, FlashStep::count, words, words);
    return shoot(QString("Flashing, %1").arg(part), progress->window());
}

Shot notice(FirmwareNotice::Kind kind, const QString& headline, const QString& detail, const QString& decline,
            const QString& accept) {
    FirmwareNoticeWindow window;
    window.show({kind, headline, detail, decline, accept, {}});
    return shoot("Firmware: " + headline.section(QChar::LineSeparator, 0, 0), window.window());
}

Shots notices() {
    using Kind = FirmwareNotice::Kind;
    return {notice(Kind::runs, "Firmware 1.06 runs on the pedal.", "It ran 1.05 before.", "OK", {}),
            notice(Kind::missing, "Sent, but the pedal has not come back yet",
                   "Unplug it and plug it in again. The program goes on looking for it for ten minutes.",
                   "Close", {}),
            notice(Kind::failed, "The pedal did not take the image: 61 % was sent.",
                   "It waits in its loader until it gets firmware.", "Close", "Try Again"),
            notice(Kind::repair,
                   QString("This pedal is waiting for firmware.") + QChar(QChar::LineSeparator) +
                       "Would you like to install 1.06 now?",
                   "It runs only its loader, as after an installation that did not finish. Until it has "
                   "firmware, its loops cannot be listed.",
                   "Not Now", "Install")};
}

Shot softwareUpdate(const QString& caption, const std::string& version, std::string_view body,
                    bool answered) {
    StillExecutor executor;
    StillHttp http(body);
    UpdateBuild build;
    build.version = version;
    build.keys.emplace_back();
    build.website = "https://www.kzq.example/";
    Installation installation;
    installation.kind = PackageKind::appImage;
    UpdaterEnvironment environment{executor, http, {}, build, installation, {}};
    const auto updater = std::make_shared<SUUpdater>(std::move(environment));
    updater->setFeedURL("https://www.kzq.example/feed.xml");
    const auto window = SoftwareUpdate::softwareUpdate({updater, version, {}});
    window->checkForUpdates();
    if (answered) {
        executor.settle();
    }
    return shoot(caption, window->window());
}

}  // namespace

Shots updateWindows() {
    Shots shots = notices();
    append(shots,
           {firmwareOffer("Firmware offer", 1), firmwareOffer("Firmware offer, long notes", 3),
            flashing(0.1, flashStep(FlashPhase::restarting, {})),
            flashing(0.3, flashStep(FlashPhase::cameBack, {})),
            flashing(0.85, flashStep(FlashPhase::sending, 61)), flashing(1, flashStep(FlashPhase::sent, {})),
            softwareUpdate("Software update, checking", "2.1.0", feed, false),
            softwareUpdate("Software update, offer", "2.1.0", feed, true),
            softwareUpdate("Software update, none", "3000", feed, true),
            softwareUpdate("Software update, failed", "2.1.0", "no feed", true)});
    return shots;
}

}  // namespace kzq::gallery
