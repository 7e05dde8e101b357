#include <fstream>

#include "flow_fixture.h"
#include "platform/digest.h"
#include "updates/windows/firmware_updater.h"

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
    bool offerShown() { return delegate->firmwareUpdater()->window().isVisible(); }
    bool flashing() { return delegate->firmwareUpdater()->progress().animate(); }
    std::filesystem::path file(const std::string& content) const {
        auto path = base / "files" / "chosen.bin";
        std::ofstream(path, std::ios::binary) << content;
        return path;
    }

    std::string image;
};

TEST_F(FirmwareFlow, ItIsLookedForAsSoonAsAPedalArrives) {
    offer("1.06");
    pedal.setStage('b');  // needs some at once
    launchConnected();
    EXPECT_TRUE(delegate->firmwareUpdater()->update());
}

TEST_F(FirmwareFlow, AnOfferIsInstalledAcrossTheRestartAndThenTakenBack) {
    launchWithOffer();
    delegate->openFirmwareUpdater();
    delegate->openMenu();
    delegate->firmwareUpdater()->install();
    EXPECT_FALSE(delegate->menuOpen());
    EXPECT_FALSE(shieldUp());
    executor.settle();
    EXPECT_TRUE(shieldUp() && flashing());
    EXPECT_FALSE(offerShown());
    pass(2s);
    EXPECT_TRUE(shieldUp());  // the pedal has restarted, and everything else about it went
    EXPECT_FALSE(importRow(1).occupied());
    const auto asked = web.requested.size();
    ASSERT_TRUE(executor.advanceUntil([this] { return !shieldUp(); }, 20s));
    EXPECT_FALSE(flashing());
    EXPECT_FALSE(delegate->firmwareUpdater()->update());
    EXPECT_EQ(pedal.installedFirmware(), Bytes(image.begin(), image.end()));
    executor.settle();
    EXPECT_GT(web.requested.size(), asked);  // looked for again
    pass(20s);
    EXPECT_EQ(line(), "Firmware 1.06 runs on the pedal");
}

TEST_F(FirmwareFlow, AFailureKeepsTheOfferAndTheBar) {
    launchWithOffer();
    plan("refuse@E4");
    delegate->installFirmware();
    pass(1s);
    EXPECT_FALSE(shieldUp());
    EXPECT_EQ(line(), "No firmware was installed: the pedal refused");
    EXPECT_TRUE(flashing());
    EXPECT_TRUE(delegate->firmwareUpdater()->update());
    delegate->installFirmware();
    pass(20s);
    EXPECT_TRUE(pedal.installedFirmware());
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
    EXPECT_EQ(line(), "The pedal came back without entering its loader: the firmware is sent once it does");
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
    const auto chosen = file("my own firmware");
    delegate->installFirmware(chosen);
    pass(20s);
    EXPECT_FALSE(shieldUp());
    EXPECT_EQ(pedal.installedFirmware().value().size(), 15U);
}

}  // namespace

}  // namespace kzq::test
