#include "platform/digest.h"
#include "tool_fixture.h"

namespace kzq::test {
namespace {

using namespace std::chrono_literals;
using ctl::Answer;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using Strings = std::vector<std::string>;

class FirmwareTest : public ToolTest {
  protected:
    FirmwareTest() { offer("1.06", "1.06"); }

    /// The image says that it is `inside`.
    void offer(const std::string& version, const std::string& inside) {
        image = Bytes(3000, 7);
        const std::string mark = "7306 firmware " + inside;
        std::copy(mark.begin(), mark.end(), image.begin());
        web.bodies["new.bin"] = {image.begin(), image.end()};
        web.bodies["_.json"] = R"([{"name":"new.bin","hash":")" + MD5String(image).value() +
                               R"(","size":3000,"version":")" + version +
                               R"(","changes":["Better","\u001b[2JBest"]}])";
    }
    void blank() {
        pedal.setStage('b');
        pedal.plugIn();
    }
    ExitCode install(Strings arguments = {}) {
        arguments.insert(arguments.begin(), {"firmware", "install", "--yes"});
        return run(arguments);
    }
    /// Nothing has been written to the pedal.
    void expectUntouched() {
        EXPECT_EQ(sent(0xE4) + sent(0xE7), 0) << out.str();
        EXPECT_EQ(pedal.installedFirmware(), std::nullopt);
        EXPECT_FALSE(signalsHeld);
    }
    std::set<std::string> cached() const {
        std::set<std::string> names;
        for (const auto& entry :
             std::filesystem::recursive_directory_iterator(folder.parent_path() / "Library")) {
            if (!entry.is_directory()) {
                names.insert(entry.path().filename());
            }
        }
        return names;
    }
    Bytes image;
};

TEST_F(FirmwareTest, ShowsWhatThePedalRunsAndWhatIsOffered) {
    pedal.plugIn();
    EXPECT_EQ(run({"firmware"}), ExitCode::ok);
    EXPECT_EQ(out.str(),
              "The pedal runs firmware 1.05.\n"
              "Firmware 1.06 is available. Run \"kzq7306ctl firmware install\" to install it.\n"
              "  - Better\n  - ?[2JBest\n");
    web.bodies.clear();
    EXPECT_EQ(run({"firmware"}), ExitCode::noDownload);
    EXPECT_EQ(out.str(), "The pedal runs firmware 1.05.\n");
    EXPECT_THAT(err.str(), HasSubstr("(no connection). Check the internet connection"));
    expectUntouched();
}

TEST_F(FirmwareTest, ANormalPedalGoesThroughItsLoaderAndComesBackWithTheNewVersion) {
    pedal.plugIn();
    terminal = true;
    EXPECT_EQ(install({"--json"}), ExitCode::ok);
    EXPECT_EQ(pedal.installedFirmware(), image);
    std::size_t from = 0;
    for (const auto* const part :
         {R"("event":"plan")", R"("phase":"restart")", R"("phase":"left")", R"("phase":"loader")",
          R"("phase":"sent")", R"("installed":true)", R"("version":"1.06")"}) {
        from = out.str().find(part, from);
        EXPECT_NE(from, std::string::npos) << part << out.str();
    }
    EXPECT_THAT(out.str(), HasSubstr("Preparing and sending the image: 8 s"));
    EXPECT_THAT(err.str(), IsEmpty());
    EXPECT_LT(seconds(), 14);
    EXPECT_FALSE(signalsHeld);

    EXPECT_EQ(install(), ExitCode::ok);  // the same again
    EXPECT_THAT(out.str(), HasSubstr("There is nothing to install."));
    EXPECT_EQ(sent(0xE4), 2);
    EXPECT_THAT(pedal.violations(), IsEmpty());

    pedal.setVersion("1.05");
    offer("1.06", "1.05");
    EXPECT_EQ(install({"--json"}), ExitCode::pedalRefused);
    EXPECT_THAT(out.str(), HasSubstr(R"("installed":false)"));
    EXPECT_THAT(out.str(), HasSubstr(R"("trouble":"older-version")"));
}

TEST_F(FirmwareTest, APedalWithNothingButItsLoaderIsRepaired) {
    offer("1.04", "1.04");
    blank();
    EXPECT_EQ(run({"list"}), ExitCode::pedalRefused);
    EXPECT_THAT(err.str(), HasSubstr("Run \"kzq7306ctl firmware install\"."));
    EXPECT_EQ(run({"firmware"}), ExitCode::ok);
    EXPECT_THAT(out.str(), HasSubstr("The pedal is running only its loader"));
    EXPECT_EQ(run({"firmware", "install"}), ExitCode::usage);
    answer = [] { return Answer::no; };
    EXPECT_EQ(run({"firmware", "install"}), ExitCode::cancelled);
    expectUntouched();
    answer = [] { return Answer::yes; };
    keepAwake = [] { return AwakeLock{nullptr, "no bus"}; };
    EXPECT_EQ(run({"firmware", "install"}), ExitCode::ok);
    EXPECT_THAT(out.str(), HasSubstr("Do not unplug the pedal"));
    EXPECT_THAT(out.str(), HasSubstr("make a backup first"));
    EXPECT_THAT(out.str(), HasSubstr("The pedal runs firmware 1.04.\n"));
    EXPECT_EQ(err.str(),
              "kzq7306ctl: Could not keep the computer awake (no bus). Make sure it does not go to sleep.\n");
    EXPECT_EQ(pedal.installedFirmware(), image);
    EXPECT_EQ(sent(0xE7), 1);
}

TEST_F(FirmwareTest, NothingUnverifiedIsOffered) {
    pedal.plugIn();
    const auto good = web.bodies;
    web.bodies["new.bin"].back() ^= 1;
    EXPECT_EQ(run({"firmware"}), ExitCode::noDownload);
    EXPECT_EQ(out.str(), "The pedal runs firmware 1.05.\n");
    EXPECT_THAT(err.str(), HasSubstr("could not be downloaded, verified and stored"));
    EXPECT_THAT(cached(), IsEmpty());

    web.bodies = good;
    EXPECT_EQ(run({"firmware"}), ExitCode::ok);
    EXPECT_THAT(cached(), testing::ElementsAre("new.bin"));
    web.bodies.erase("new.bin");
    EXPECT_EQ(run({"firmware"}), ExitCode::ok);  // from the cache
    offer("1.05", "1.05");
    web.bodies.erase("new.bin");
    EXPECT_EQ(run({"firmware"}), ExitCode::ok);  // nothing that would be installed
    EXPECT_EQ(out.str(),
              "The pedal runs firmware 1.05.\nThe newest firmware is 1.05, so there is nothing to "
              "install.\n");
    pedal.setVersion("x.yz");
    EXPECT_EQ(install(), ExitCode::pedalRefused);
    expectUntouched();
}

TEST_F(FirmwareTest, AFileOfTheUsersIsInstalledWithAWarning) {
    pedal.plugIn();
    web.bodies.clear();
    EXPECT_EQ(install({folder / "missing.bin"}), ExitCode::fileError);
    EXPECT_EQ(install({write("empty.bin", {})}), ExitCode::fileError);
    EXPECT_THAT(err.str(), HasSubstr("empty.bin\" is empty."));
    const auto large = write("large.bin", Bytes{1});
    std::filesystem::resize_file(large, 50'000'001);
    EXPECT_EQ(install({large}), ExitCode::fileError);
    EXPECT_THAT(err.str(), HasSubstr("is larger than firmware can be"));
    expectUntouched();
    EXPECT_EQ(install({write("own.bin", Bytes{1, 2, 3})}), ExitCode::ok);
    EXPECT_THAT(out.str(), HasSubstr("This file cannot be verified"));
    EXPECT_EQ(pedal.installedFirmware(), (Bytes{1, 2, 3}));
}

TEST_F(FirmwareTest, AFailureIsToldWithWhatToDo) {
    pedal.plugIn();
    plan("refuse@E4");
    EXPECT_EQ(install(), ExitCode::pedalRefused);
    EXPECT_THAT(err.str(), HasSubstr("Nothing was changed."));
    pedal.setBusy(true);
    EXPECT_EQ(install({"--json"}), ExitCode::pedalRefused);
    EXPECT_THAT(out.str(), HasSubstr(R"("trouble":"busy")"));
    pedal.setBusy(false);
    pedal.setReturns(false);
    EXPECT_EQ(install(), ExitCode::noPedal);
    EXPECT_THAT(err.str(), HasSubstr("did not come back"));
    EXPECT_THAT(err.str(), HasSubstr("plug it in again and run the same command again"));
}

TEST_F(FirmwareTest, OnlyAPedalThatIsBackWithItsVersionHasBeenUpdated) {
    blank();
    plan("stall@E5");
    EXPECT_EQ(install({"--json"}), ExitCode::pedalRefused);
    EXPECT_THAT(out.str(), HasSubstr(R"("installed":null)"));
    EXPECT_THAT(err.str(), HasSubstr("has not restarted yet"));
    start({"firmware", "install", "--yes", "--json"});
    executor.advance(5s);
    pedal.setReturns(false);
    EXPECT_EQ(finish(), ExitCode::pedalRefused);
    EXPECT_THAT(out.str(), HasSubstr(R"("installed":null)"));
    EXPECT_THAT(out.str(), HasSubstr(R"("trouble":"unconfirmed")"));
    EXPECT_THAT(err.str(), HasSubstr("it is not known whether it is installed"));
    EXPECT_THAT(out.str(), Not(HasSubstr("complete")));
}

TEST_F(FirmwareTest, SignalsWaitForTheEndOfTheImage) {
    pedal.plugIn();
    // With a wait, as its end must not be mistaken for a pedal that never came.
    start({"firmware", "install", "--yes", "--wait", "1", "--patience", "0"});
    for (const Executor::Duration pause : {500ms, 4000ms, 4000ms}) {  // away, and twice in the loader
        executor.advance(pause);
        ASSERT_TRUE(signalsHeld);
        signalsHeld();
        tool->interrupt();  // of a signal that came before
        EXPECT_FALSE(code);
    }
    EXPECT_EQ(finish(), ExitCode::pedalRefused) << "whether it runs was not seen";
    EXPECT_EQ(pedal.installedFirmware(), image);
    EXPECT_THAT(err.str(), HasSubstr("it is not known whether it is installed"));
    EXPECT_THAT(err.str(), HasSubstr("Waiting until the firmware is complete…"));
    EXPECT_LT(seconds(), 11);  // nobody waits for the pedal's return
    EXPECT_FALSE(signalsHeld);
}

}  // namespace
}  // namespace kzq::test
