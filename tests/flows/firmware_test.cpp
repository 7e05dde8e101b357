#include <QApplication>
#include <QTest>
#include <fstream>

#include "flow_fixture.h"
#include "platform/digest.h"
#include "updates/windows/firmware_updater.h"
#include "updates/windows/notes_view.h"

namespace kzq::test {

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class FirmwareFlow : public FlowTest {
  protected:
    /// The maker's server has this version.
    void offer(const std::string& version) {
        image = "7306 firmware " + version;
        image.resize(600, ' ');
        const Bytes bytes(image.begin(), image.end());
        web.bodies["new.bin"] = image;
        web.bodies["_.json"] = R"([{"name": "new.bin", "hash": ")" + MD5String(bytes).value() +
                               R"(", "size": )" + std::to_string(image.size()) + R"(, "version": ")" +
                               version + R"(", "changes": ["better"]}])";
    }
    void launchWithOffer() {
        offer("1.06");
        launchConnected();
        pass(15s);
        ASSERT_TRUE(delegate->firmwareUpdater()->update());
    }
    /// Starts with the pedal in its loader, as after an installation that did not finish.
    void launchInLoader() {
        pedal.setStage('b');
        launchConnected();
    }
    /// The small window: null while it is closed.
    static QWidget* notice() {
        for (auto* const widget : QApplication::topLevelWidgets()) {
            if (widget->isVisible() && widget->findChild<QLabel*>("headline") != nullptr &&
                widget->findChild<QWidget*>("decline") != nullptr) {
                return widget;
            }
        }
        return nullptr;
    }
    static std::string noticeText(const char* part = "headline") {
        return notice() == nullptr ? "" : notice()->findChild<QLabel*>(part)->text().toStdString();
    }
    static void press(const char* button) {
        ASSERT_NE(notice(), nullptr);
        auto& wanted = *notice()->findChild<QAbstractButton*>(button);
        ASSERT_FALSE(wanted.isHidden()) << button;
        wanted.click();
    }
    static bool accepts() { return notice() && !notice()->findChild<QWidget*>("accept")->isHidden(); }
    void useLink() { window->statusLine().link().click(); }
    /// What the status line says, one thing after the other, for so long.
    std::vector<std::string> linesFor(Executor::Duration time) {
        std::vector<std::string> lines{line()};
        for (const auto end = executor.elapsed() + time; executor.elapsed() < end; pass(50ms)) {
            if (line() != lines.back()) {
                lines.push_back(line());
            }
            offeredAgain = offeredAgain || (!flashing() && delegate->firmwareUpdater()->update());
        }
        return lines;
    }
    bool offerShown() { return delegate->firmwareUpdater()->window().isVisible(); }
    bool flashing() { return delegate->firmwareUpdater()->progress().animate(); }
    std::filesystem::path file(const std::string& content) const {
        auto path = base / "files" / "chosen.bin";
        std::ofstream(path, std::ios::binary) << content;
        return path;
    }

    std::string image;
    bool offeredAgain = false;
};

TEST_F(FirmwareFlow, AnOfferIsInstalledAcrossTheRestartAndThenTakenBack) {
    launchWithOffer();
    delegate->openFirmwareUpdater();
    port.writePiece = 300;
    port.writePace = 500ms;
    auto& updater = delegate->firmwareUpdater()->window();
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
    QCoreApplication::sendEvent(&updater, &held);  // since before it came
    QTest::keyClick(&updater, Qt::Key_Escape);
    EXPECT_FALSE(offerShown());
    delegate->openFirmwareUpdater();
    EXPECT_THAT(delegate->firmwareUpdater()->notes().toPlainText().toStdString(), HasSubstr("better"));
    delegate->openMenu();
    QTest::keyClick(&delegate->firmwareUpdater()->notes(), Qt::Key_Return);
    EXPECT_FALSE(delegate->menuOpen());
    EXPECT_FALSE(shieldUp());
    executor.settle();
    EXPECT_TRUE(shieldUp() && flashing());
    EXPECT_FALSE(offerShown());
    pass(100ms);
    const auto lines = linesFor(13s);
    EXPECT_FALSE(importRow(1).occupied());
    EXPECT_FALSE(shieldUp() || flashing());
    EXPECT_THAT(logged, testing::Not(testing::Contains(HasSubstr("waiting for firmware"))));
    EXPECT_THAT(lines, ElementsAre("Restarting the pedal", "The pedal is preparing", "Sending image, 0 %",
                                   "Sending image, 50 %", "Sending image, 100 %",
                                   "Waiting for the pedal to come back"));
    EXPECT_EQ(linesFor(30s).back(), "Firmware 1.06 runs on the pedal");
    EXPECT_EQ(pedal.installedFirmware(), Bytes(image.begin(), image.end()));
    EXPECT_FALSE(offeredAgain);
    EXPECT_EQ(noticeText(), "Firmware 1.06 runs on the pedal.");
    EXPECT_EQ(noticeText("detail"), "It ran 1.05 before.");
}

TEST_F(FirmwareFlow, AFailureKeepsTheOfferAndTheBarAndIsTriedAgain) {
    launchWithOffer();
    plan("refuse@E4");
    const auto asked = web.requested.size();
    delegate->installFirmware();
    pass(1s);
    EXPECT_FALSE(shieldUp());
    EXPECT_EQ(line(), "No firmware was installed: the pedal refused");
    EXPECT_GT(web.requested.size(), asked) << "looked for again";
    EXPECT_TRUE(flashing());
    EXPECT_TRUE(delegate->firmwareUpdater()->update());
    plan("stall@out:2");
    port.writePiece = 300;
    press("accept");
    EXPECT_EQ(notice(), nullptr);
    pass(20s);
    EXPECT_EQ(line(), "The pedal did not take the image: 50 % was sent");
    EXPECT_EQ(noticeText(), line() + ".");
    press("accept");
    pass(20s);
    EXPECT_EQ(line(), "Firmware 1.06 runs on the pedal");
}

TEST_F(FirmwareFlow, AnOldVersionThatComesBackIsNoSuccess) {
    launchWithOffer();
    delegate->installFirmware(file("an image without a version"));
    plan("stall@E5");
    pass(1min);
    pedal.unplug();
    pedal.setStage('p');
    plugIn();
    pass(20s);
    EXPECT_EQ(line(), "The pedal did not take the image: it is back with firmware 1.05");
    EXPECT_FALSE(accepts()) << "the file is not verified";
}

TEST_F(FirmwareFlow, APedalThatIsNotSeenAgainIsLookedFor) {
    launchWithOffer();
    delegate->installFirmware();
    pass(5s);
    pedal.setReturns(false);
    pass(5min);
    EXPECT_EQ(line(), "Sent, but the pedal has not come back yet");
    EXPECT_EQ(noticeText(), line());
    EXPECT_FALSE(shieldUp() || accepts());
    plugIn();
    pass(20s);
    EXPECT_EQ(line(), "Firmware 1.06 runs on the pedal");
    EXPECT_EQ(noticeText(), line() + ".");
}

TEST_F(FirmwareFlow, APedalFoundInItsLoaderIsRepaired) {
    constexpr auto waits = "The pedal is waiting for firmware";
    launchInLoader();
    pass(20s);
    EXPECT_EQ(line(), waits);
    EXPECT_EQ(notice(), nullptr) << "there is nothing to install";
    useLink();
    EXPECT_FALSE(accepts());
    press("decline");
    pedal.unplug();
    executor.settle();
    EXPECT_EQ(line(), "No pedal connected");
    offer("1.06");
    plugIn();
    pass(2s);
    EXPECT_THAT(noticeText(), HasSubstr("Would you like to install 1.06 now?"));
    EXPECT_TRUE(notice()->testAttribute(Qt::WA_ShowWithoutActivating));
    press("decline");
    pass(30s);
    EXPECT_EQ(line(), waits);
    EXPECT_EQ(notice(), nullptr) << "asked once";
    useLink();
    press("accept");
    pass(20s);
    EXPECT_EQ(line(), "Firmware 1.06 runs on the pedal");
}

TEST_F(FirmwareFlow, UpToDateSaysWhatItRestsOn) {
    offer("1.05");
    launchConnected();
    delegate->openFirmwareUpdater();
    EXPECT_THAT(line(),
                testing::MatchesRegex("Firmware list read at [0-9][0-9]:[0-9][0-9]: 1.05 is the newest"));
    web.bodies.clear();
    pass(15s);
    delegate->openFirmwareUpdater();
    EXPECT_EQ(line(), "The firmware list could not be read: the maker's server could not be reached");
    EXPECT_THAT(dialogs.take(), testing::Each(HasSubstr("You're up to date!")));
}

TEST_F(FirmwareFlow, APedalThatComesBackWithoutItsLoaderIsWaitedFor) {
    launchConnected();
    delegate->installFirmware(file("mine"));
    pass(1s);
    pedal.unplug();
    pass(31s);
    EXPECT_THAT(line(), HasSubstr("has not come back from its restart"));
    pedal.setStage('p');
    plugIn();
    pass(1min);
    EXPECT_TRUE(shieldUp());
    EXPECT_EQ(line(), "The pedal came back without taking the image; close and reopen the window");
    pedal.unplug();
    pedal.setStage('b');
    plugIn();
    pass(20s);
    EXPECT_FALSE(shieldUp());
    EXPECT_EQ(pedal.installedFirmware().value().size(), 4U);
}

TEST_F(FirmwareFlow, AChosenFileIsInstalledAndAnUnusableOneIsNot) {
    launchConnected();
    pedal.clearJournal();
    delegate->installFirmware();  // nothing is offered
    pass(1s);
    delegate->installFirmware(base / "missing.bin");
    pass(1s);
    delegate->installFirmware(file(""));
    pass(1s);
    EXPECT_FALSE(shieldUp() || flashing());
    EXPECT_THAT(sent(0xE4), IsEmpty());
    pedal.setBusy(true);
    delegate->installFirmware(base / "missing.bin");  // the pedal comes before the file
    pass(1s);
    EXPECT_THAT(dialogs.take(), ElementsAre(isBusy));
    pedal.setBusy(false);
    offer("1.05");
    pass(15s);
    delegate->installFirmware(file("my own firmware"));
    pass(12s);
    EXPECT_FALSE(shieldUp());
    EXPECT_THAT(logged, Contains(HasSubstr("\"chosen.bin\" was sent. 15 bytes, SHA-256 " +
                                           SHA256String(pedal.installedFirmware().value()).value() +
                                           ". It is not the maker's newest firmware, 1.05.")));
    EXPECT_EQ(pedal.installedFirmware().value().size(), 15U);
}

}  // namespace

}  // namespace kzq::test
