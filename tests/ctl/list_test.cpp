#include <nlohmann/json.hpp>

#include "tool_fixture.h"

namespace kzq::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

TEST_F(ToolTest, ListShowsTheLoops) {
    pedal.plugIn();
    pedal.setVersion("1.0\x1b");
    pedal.setLoop(19, simulator::StoredLoop{Bytes(44'100UL * 6 * 61), 90, 255});
    EXPECT_EQ(run({"list"}), ExitCode::ok);
    EXPECT_EQ(out.str(),
              "Slot    Length      Size     Tempo   Channel\n"
              "   2    0:00.0    6.0 kB       100        10\n"
              "   5    0:00.0       6 B       100        20\n"
              "  20    1:01.0   16.1 MB        90       255\n"
              "Firmware 1.0?, 3 loops, 22 min 58 s of 24 min free.\n");
    EXPECT_THAT(err.str(), IsEmpty());
    EXPECT_EQ(seconds(), 0);
}

TEST_F(ToolTest, ListAsJson) {
    pedal.plugIn();
    EXPECT_EQ(run({"--json", "list"}), ExitCode::ok);
    const auto document = nlohmann::json::parse(out.str());
    EXPECT_EQ(document["schema"], 1);
    EXPECT_EQ(document["firmware"], "1.05");
    EXPECT_EQ(document["free"]["samples"], 63'504'000 - 2501);
    EXPECT_EQ(document["loops"].size(), 3U);
    EXPECT_EQ(
        document["loops"][0],
        nlohmann::json::parse(R"({"slot": 2, "samples": 1000, "audioBytes": 6000, "tempo": 100, "channel": 10,
                                       "seconds": 0.022675736961451247})"));
}

TEST_F(ToolTest, WaitsForThePedalAsLongAsAsked) {
    EXPECT_EQ(run({"list"}), ExitCode::noPedal);
    EXPECT_THAT(err.str(), StartsWith("kzq7306ctl: No pedal is connected."));
    EXPECT_EQ(seconds(), 0);
    start({"list", "--wait", "10"});
    executor.advance(std::chrono::seconds(7));
    EXPECT_FALSE(code);
    pedal.plugIn();
    EXPECT_EQ(finish(), ExitCode::ok);
    EXPECT_EQ(seconds(), 7);
}

TEST_F(ToolTest, NoPermissionTellsTheRemedy) {
    port.setOpenResult(usbAccess);
    findings = {{Trouble::Kind::roadNotInstalled, true, "Something else.", "fix it"},
                {Trouble::Kind::ruleNotInForce, false, "All is well.", {}},
                {Trouble::Kind::ruleMissing, true, "Its rule is missing.", "sudo install it"}};
    start({"list", "--wait", "60"});
    executor.advance(std::chrono::seconds(2));
    pedal.plugIn();
    EXPECT_EQ(finish(), ExitCode::noPermission);
    EXPECT_LT(seconds(), 2.5);
    EXPECT_EQ(err.str(), "kzq7306ctl: Its rule is missing. Run: sudo install it\n");
}

TEST_F(ToolTest, WaitsForAPedalThatAnotherProgramHas) {
    port.setClaimResult(usbBusy);
    pedal.plugIn();
    findings = {{Trouble::Kind::heldByAnother, true, "The pedal is in use by a (process 5).", {}}};
    EXPECT_EQ(run({"list", "--wait", "9"}), ExitCode::pedalRefused);
    EXPECT_EQ(seconds(), 9);
    EXPECT_EQ(err.str(),
              "kzq7306ctl: The pedal is in use by a (process 5).\n"
              "kzq7306ctl: The pedal is in use by a (process 5).\n");
    start({"list", "--wait", "9"});
    executor.advance(std::chrono::seconds(5));
    EXPECT_FALSE(code);
    port.setClaimResult(usbSuccess);
    pedal.unplug();
    pedal.plugIn();
    EXPECT_EQ(finish(), ExitCode::ok);
}

TEST_F(ToolTest, TheDoctorTellsAllAndEndsWithTheFirstTrouble) {
    findings = {{Trouble::Kind::nothingOnBus, false, "A pedal is there.", {}},
                {Trouble::Kind::ruleNotInForce, true, "Not yet.", "cd caf\xe9"},
                {Trouble::Kind::noUdev, true, "No udev.", {}}};
    EXPECT_EQ(run({"doctor"}), ExitCode::noPermission);
    EXPECT_EQ(out.str(), "ok  A pedal is there.\n!!  Not yet.\n      cd caf\xe9\n!!  No udev.\n");
    EXPECT_EQ(run({"doctor", "--json"}), ExitCode::noPermission);
    EXPECT_EQ(events().at(1)["command"], "cd caf\uFFFD");
    EXPECT_EQ(events().at(3)["trouble"], "rule-not-in-force");
    findings.clear();
    EXPECT_EQ(run({"doctor"}), ExitCode::ok);
}

TEST_F(ToolTest, TheDoctorInstallsWhatIsMissingLooksAgainAndSavesAReport) {
    const Finding missing{Trouble::Kind::roadNotInstalled, true, "No rule.",
                          "sudo install -m 644 /home/ann/x.rules /etc/udev/rules.d/ && sudo udevadm trigger"};
    findings = {missing};
    EXPECT_EQ(run({"doctor", "--install"}), ExitCode::noPermission);
    EXPECT_THAT(err.str(), HasSubstr("there is no pkexec here"));
    std::string commands;
    asRoot = [&](const std::string& given) -> Result<void> {
        commands = given;
        return Trouble{Trouble::Kind::declined, "pkexec", 0, "no password was given"};
    };
    EXPECT_EQ(run({"doctor", "--install"}), ExitCode::noPermission);
    EXPECT_THAT(err.str(), HasSubstr("not installed: no password was given. Run: sudo install"));
    asRoot = [&](const std::string&) -> Result<void> {
        executor.mainAfter(std::chrono::seconds(1), [this] { findings.front().present = false; });
        return {};
    };
    report.owner = {"/home/ann", "ann"};
    EXPECT_EQ(run({"doctor", "--install", "--report", folder / "report"}), ExitCode::ok);
    EXPECT_EQ(commands, "install -m 644 /home/ann/x.rules /etc/udev/rules.d/ && udevadm trigger");
    EXPECT_THAT(out.str(),
                testing::ContainsRegex("x.rules goes into /etc/udev/rules.d.\n.*\nok  No rule.\n"));
    findings = {missing};
    const auto before = contents("report");
    EXPECT_EQ(run({"doctor", "--report", folder / "report"}), ExitCode::fileError) << "there is one";
    EXPECT_EQ(contents("report"), before);
    EXPECT_EQ(run({"doctor", "--report", folder / "other"}), ExitCode::noPermission);
    const auto other = contents("other");
    const std::string text(other.begin(), other.end());
    EXPECT_THAT(text, HasSubstr("sudo install -m 644 <file 1> /etc/udev/rules.d/ && sudo"));
    EXPECT_THAT(text, testing::Not(HasSubstr("ann")));
}

TEST_F(ToolTest, TheDoctorRemovesWhatItInstalled) {
    EXPECT_EQ(run({"doctor", "--remove"}), ExitCode::ok);
    EXPECT_EQ(out.str(), "There is nothing to remove.\n");
    removal = "sudo rm -f /etc/a && sudo udevadm control";
    EXPECT_EQ(run({"doctor", "--remove"}), ExitCode::noPermission);
    EXPECT_THAT(err.str(), HasSubstr("The system rule was not removed: there is no pkexec here"));
    std::string commands;
    asRoot = [&](const std::string& given) -> Result<void> {
        commands = given;
        return {};
    };
    EXPECT_EQ(run({"doctor", "--remove"}), ExitCode::ok);
    EXPECT_EQ(commands, "rm -f /etc/a && udevadm control");
}

TEST_F(ToolTest, PatienceCoversOpeningThePedal) {
    port.openPace = std::chrono::hours(1);
    pedal.plugIn();
    EXPECT_EQ(run({"list", "--patience", "12"}), ExitCode::pedalRefused);
    EXPECT_THAT(err.str(), StartsWith("kzq7306ctl: The pedal stopped answering."));
    EXPECT_LE(endedAt, 12 + 2);
}

}  // namespace
}  // namespace kzq::test
