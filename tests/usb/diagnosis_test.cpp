#include "device/libusb/diagnosis.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

#include "device/libusb/road_patience.h"
#include "platform/descriptor.h"
#include "platform/fixed.h"

namespace kzq {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

/// A system in which everything is as it should be, to take things away from.
class DiagnosisTest : public testing::Test {
  protected:
    DiagnosisTest() {
        std::string name = (fs::temp_directory_path() / "diagnosis-XXXXXX").string();
        root_ = ::mkdtemp(name.data());
        places_ = {.usbDevices = root_ / "devices",
                   .usbDrivers = root_ / "drivers",
                   .nodes = root_ / "nodes",
                   .udevControl = root_ / "control",
                   .ruleFolders = {root_ / "none", root_ / "rules"},
                   .helperFolders = {root_ / "none", root_ / "helpers"},
                   .setUp = root_ / "kzq7306-setup"};
        write("devices/usb1/idVendor", "1d6b");
        write("devices/3-1.2/idVendor", "308a");
        write("devices/3-1.2/idProduct", "0104");
        write("devices/3-1.2/busnum", "3");
        write("devices/3-1.2/devnum", "14");
        fs::create_directories(root_ / "devices/3-1.2/3-1.2:1.0");
        write("nodes/003/014", "");
        write("control", "");
        fs::create_directories(root_ / "rules");
        fs::copy_file(KZQ_RULES, root_ / "rules/70-kzq7306.rules");
        write("helpers/kzq7306-usbtmc", "");
        write("drivers/usbtmc/new_id", "1234 5678\n308a 0104\n");
    }
    ~DiagnosisTest() override { fs::remove_all(root_); }

    void write(const std::string& file, const std::string& text) {
        fs::create_directories((root_ / file).parent_path());
        std::ofstream(root_ / file) << text << '\n';
    }
    void bind(const std::string& driver) {
        const auto link = root_ / "devices/3-1.2/3-1.2:1.0/driver";
        fs::remove(link);
        fs::create_symlink("../../../drivers/" + driver, link);
    }
    /// What is told first; "" when all is well.
    std::string told(Trouble::Kind kind) {
        const auto first = firstTrouble(diagnose(places_));
        if (!first) {
            return {};
        }
        EXPECT_EQ(first->kind, kind) << first->sentence;
        return first->remedy;
    }

    fs::path root_;
    SystemPlaces places_;
};

TEST_F(DiagnosisTest, TellsThePlacesOfTroubleApart) {
    EXPECT_FALSE(firstTrouble(diagnose(places_)));
    EXPECT_EQ(diagnose(places_).size(), 5);

    write("drivers/usbtmc/new_id", "308a 0105");
    EXPECT_THAT(told(Trouble::Kind::roadNotInForce), HasSubstr("udevadm trigger"));
    fs::remove(root_ / "helpers/kzq7306-usbtmc");
    EXPECT_THAT(told(Trouble::Kind::roadNotInstalled), HasSubstr("install -m"));

    fs::remove(root_ / "control");
    EXPECT_EQ(told(Trouble::Kind::noUdev), "");
    bind("usbtmc");
    EXPECT_EQ(told(Trouble::Kind::noUdev), "") << "the programs take the pedal back from it";
    bind("cdc_acm");
    EXPECT_THAT(told(Trouble::Kind::heldByDriver), HasSubstr("echo 3-1.2:1.0"));
    bind("usbfs");
    EXPECT_THAT(told(Trouble::Kind::heldByAnother), HasSubstr("nodes/003/014"));

    fs::remove_all(root_ / "devices/3-1.2");
    EXPECT_THAT(told(Trouble::Kind::nothingOnBus), HasSubstr("lsusb"));
}

TEST_F(DiagnosisTest, NamesTheProgramThatHasThePedal) {
    const Descriptor node(::open((root_ / "nodes/003/014").c_str(), O_RDWR | O_CLOEXEC));
    ASSERT_EQ(::flock(node.get(), LOCK_EX), 0);
    EXPECT_EQ(holderLine(diagnose(places_)), "") << "the program itself is not in its own way";
    places_.processes.self = 0;
    const auto first = firstTrouble(diagnoseByTrying(places_));
    ASSERT_TRUE(first);
    EXPECT_EQ(first->kind, Trouble::Kind::heldByAnother);
    EXPECT_THAT(first->sentence, HasSubstr(first->program));
    EXPECT_THAT(holderLine({*first}),
                testing::EndsWith("(process " + std::to_string(::getpid()) + ") is using the pedal"));
}

TEST_F(DiagnosisTest, AFileThatCannotBeOpenedHasARemedyOfItsOwn) {
    const Trouble blocked{.kind = Trouble::Kind::roadBlocked, .where = "/dev/usbtmc0", .error = EACCES};
    places_.remote = false;
    EXPECT_THAT(withRemedy(blocked, places_).remedy, testing::StartsWith("sudo udevadm control"));
    places_.remote = true;
    EXPECT_THAT(withRemedy(blocked, places_).remedy, HasSubstr("plugdev"));
    write("rules/70-kzq7306.rules", "");
    EXPECT_THAT(withRemedy(blocked, places_).remedy, HasSubstr("install"));

    Trouble held{.kind = Trouble::Kind::roadBlocked, .error = EBUSY, .words = "cdc_acm"};
    EXPECT_EQ(withRemedy(held, places_).kind, Trouble::Kind::heldByDriver);
    EXPECT_THAT(withRemedy(held, places_).remedy, HasSubstr("drivers/cdc_acm/unbind"));
    held.words = "usbfs";
    EXPECT_EQ(withRemedy(held, places_).kind, Trouble::Kind::heldByAnother);
    EXPECT_THAT(withRemedy(held, places_).remedy, HasSubstr("fuser"));
}

TEST_F(DiagnosisTest, WhatIsInstalledIsSetUpAndRemovedByItsOwnProgramButAPackagesFilesStay) {
    const auto text = [this](const std::string& file) { return (root_ / file).string(); };
    EXPECT_EQ(removal(places_), "") << "the rules are not where they are installed";
    places_.ruleFolders.erase(places_.ruleFolders.begin());
    places_.helperFolders.erase(places_.helperFolders.begin());
    const auto all = "sudo rm -f " + text("rules/70-kzq7306.rules") + " " + text("helpers/kzq7306-usbtmc") +
                     " && sudo udevadm control --reload";
    EXPECT_EQ(removal(places_), all);
    write("helpers/rules.d/70-kzq7306.rules", "");
    EXPECT_THAT(removal(places_), testing::Not(HasSubstr("helpers")));

    write("kzq7306-setup", "");
    EXPECT_EQ(removal(places_), "sudo " + text("kzq7306-setup remove"));
    write("drivers/usbtmc/new_id", "");
    EXPECT_EQ(told(Trouble::Kind::roadNotInForce), "sudo " + text("kzq7306-setup apply"));
    fs::remove(root_ / "rules/70-kzq7306.rules");
    EXPECT_EQ(told(Trouble::Kind::roadNotInstalled), "sudo " + text("kzq7306-setup install"));
}

TEST(RoadPatience, IsSharedByTheRequestsOfAnOperation) {
    using std::chrono::seconds;
    RoadPatience patience;
    RoadPatience::Clock::time_point now{};
    const auto waits = [&] { return patience.lasts(now); };
    patience.begin(now);
    EXPECT_TRUE(waits());
    now += RoadPatience::limit;
    EXPECT_FALSE(waits());
    patience.begin(now += seconds(1));
    EXPECT_FALSE(waits()) << "the next loop waits again";
    patience.passed();
    EXPECT_TRUE(waits()) << "access came, so it may come again";
    now += RoadPatience::limit;
    EXPECT_FALSE(waits());
    patience.begin(now += RoadPatience::rest + seconds(1));
    EXPECT_TRUE(waits()) << "a new operation does not wait";
}

/// Root may do anything, so the test asks as somebody else.
class AsUser : Fixed {
  public:
    AsUser() {
        if (::geteuid() == 0) {
            EXPECT_EQ(::seteuid(65'534), 0);
        }
    }
    ~AsUser() {
        if (::getuid() == 0) {
            EXPECT_EQ(::seteuid(0), 0);
        }
    }
};

TEST_F(DiagnosisTest, NoPermissionWithAndWithoutARule) {
    fs::permissions(root_, fs::perms::all);
    fs::permissions(root_ / "nodes/003/014", fs::perms::none);
    fs::create_directories(root_ / "share/kzq7306");
    fs::copy_file(KZQ_RULES, root_ / "share/kzq7306/70-kzq7306.rules");
    write("bin/program", "");
    places_.program = root_ / "bin/program";
    const auto toldToUser = [this](Trouble::Kind kind) {
        const AsUser user;
        return told(kind);
    };
    const std::string anew = toldToUser(Trouble::Kind::ruleNotInForce);
    EXPECT_THAT(anew, HasSubstr("udevadm trigger"));

    const std::string rule = R"(ATTR{idVendor}=="308a", ATTR{idProduct}=="0104", )";
    write("rules/70-kzq7306.rules", " # " + rule + "TAG+=\"uaccess\"\n" + rule + "RUN+=\"kzq7306-usbtmc\"");
    EXPECT_THAT(toldToUser(Trouble::Kind::ruleMissing),
                testing::AllOf(HasSubstr((root_ / "share/kzq7306/70-kzq7306.rules").string()),
                               HasSubstr(" && " + anew)));
    fs::remove(root_ / "nodes/003/014");
    EXPECT_EQ(toldToUser(Trouble::Kind::noDeviceFile), "");
    EXPECT_THAT(obstacleLine(diagnose(places_)), HasSubstr("container"));
    fs::remove_all(root_ / "devices/3-1.2");
    EXPECT_EQ(obstacleLine(diagnose(places_)), "") << "only the pedal is missing";
}

}  // namespace
}  // namespace kzq
