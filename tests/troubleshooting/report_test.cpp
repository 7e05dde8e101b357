#include "troubleshooting/report.h"

#include <gmock/gmock.h>

#include "troubleshooting/log_tail.h"
#include "troubleshooting/this_computer.h"

namespace kzq {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

TroubleReport exampleReport() {
    return {.versions = {"kzq7306 1.0", "Linux 6.1"},
            .findings = {{Trouble::Kind::ruleMissing, true, "No rule.",
                          "sudo install -m 644 '/home/ann/my stuff/x.rules' /etc/udev/rules.d/ && sudo two"}},
            .results = {{.sentence = "\"First kiss.ogg\" cannot be read", .failure = true},
                        {.sentence = "2 loops saved in Secrets", .detail = "Loop 1.wav, Ann's take.wav."},
                        {.sentence = "Loop 3 was not saved",
                         .detail = "There is too little space in \"/media/ann/Old stick\": 4 MB."}},
            .log = {"14:07:31 audio: /home/ann/Music/First kiss.ogg: not converted: no sound",
                    "14:07:32 files: cannot remove /home/ann/private: busy",
                    "14:07:33 usb: /dev/usbtmc0: EACCES and https://maker.example/x",
                    "14:07:33 files: [/srv/bands]", "14:07:33 files: |/srv/bands",
                    R"(14:07:33 files: '/srv/o'\''bands' left)", "14:07:33 files: /dev/shm/bands",
                    "14:07:33 files: /usr/local/bands", "14:07:33 files: /proc/7/cwd/bands",
                    "14:07:33 application: \u201eFirst kiss.ogg\u201c ist nicht lesbar",
                    "14:07:33 application: In \u201e/media/ann/Old stick\u201c ist wenig Platz",
                    "14:07:33 application: First kiss.ogg\u3092\u4fdd\u5b58 \u300c/srv/bands\u300d",
                    "14:07:34 audio: Anna sang on the annex of ann"},
            .owner = {"/home/ann", "ann"}};
}

const std::vector<std::string> names{
    "", "/", "First kiss.ogg", "/home/ann/Music/First kiss.ogg", "Secrets", "Loop 1.wav", "Ann's take.wav"};

TEST(Report, NamesNeitherFilesNorTheUser) {
    const auto text = reportText(exampleReport(), false, names);
    for (const auto* const secret : {"kiss", "bands", "Secrets", "take", "stick", "private", "my stuff",
                                     "/home", "/media", " ann\n", "ann/"}) {
        EXPECT_THAT(text, Not(HasSubstr(secret)));
    }
    EXPECT_THAT(text, AllOf(HasSubstr("sudo install -m 644 '<file 1>' /etc/udev/rules.d/ && sudo two\n"),
                            HasSubstr("failed: \"<file 2>\" cannot be read\n"),
                            HasSubstr("audio: <file 2>: not converted: no sound\n"),
                            HasSubstr("usb: /dev/usbtmc0: EACCES and https://maker.example/x\n"),
                            HasSubstr("Anna sang on the annex of <user>\n"), HasSubstr("Linux 6.1\n")));
}

TEST(Report, NamesFilesIfWantedButNeverTheUser) {
    const auto text = reportText(exampleReport(), true, names);
    EXPECT_THAT(text, AllOf(HasSubstr("~/Music/First kiss.ogg: not converted"), HasSubstr("saved in Secrets"),
                            HasSubstr("\"/media/<user>/Old stick\""), Not(HasSubstr("/home")),
                            Not(HasSubstr("/ann"))));
}

TEST(Report, KeepsTheEndOfTheLogAndNamesTheComputer) {
    LogTail tail([] { return std::chrono::system_clock::time_point(); });
    for (std::size_t i = 0; i <= LogTail::kept; ++i) {
        tail.add("device: " + std::to_string(i));
    }
    EXPECT_EQ(tail.lines().size(), LogTail::kept);
    EXPECT_THAT(tail.lines().front(), testing::EndsWith(":00 device: 1"));
    const auto lines = thisComputer({.release = "/nowhere", .variable = [](const std::string& name) {
                                         return std::string(name == "XDG_SESSION_TYPE" ? "wayland" : "");
                                     }});
    EXPECT_THAT(lines, testing::ElementsAre(testing::StartsWith("Linux "), "unknown distribution",
                                            "session: wayland"));
}

}  // namespace
}  // namespace kzq
