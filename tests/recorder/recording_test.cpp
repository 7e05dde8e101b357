#include "device/recorder/recording.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "device/recorder/recording_file.h"

namespace kzq::recorder {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::string refusal(const std::string& lines) {
    std::stringstream file;
    file << recordingHeader << '\n' << lines;
    std::string error;
    EXPECT_FALSE(readRecording(file, error)) << lines;
    return error;
}

TEST(Recording, LinesMayEndAsTheyDoElsewhere) {
    std::istringstream file("kzq7306-usb-recording 1\r\n# a note\r\n0 1 open 1\r\n5 1 = 0\r\n");
    std::string error;
    const auto recording = readRecording(file, error);
    ASSERT_TRUE(recording) << error;
    ASSERT_EQ(recording->events.size(), 2U);
    EXPECT_EQ(recording->events[0].words, "open 1");
}

TEST(Recording, IsRefusedAtTheLineThatIsWrong) {
    const std::string begin =
        "# a note\n"
        "0 1 open 1\n"
        "5 1 = 0\n";
    const std::string call = begin + "6 2 control 1 e1 2a 0001 00ff 8\n";
    const std::string known = begin + "6 2 register left 308a 0104 -1 0\n";
    const std::string in = begin + "6 2 in 1 81 4\n";
    for (const auto& [lines, line] :
         std::vector<std::pair<std::string, int>>{{begin + "\n", 5},
                                                  {begin + "six 2 reset 1\n", 5},
                                                  {begin + "4 2 reset 1\n", 5},
                                                  {begin + "6 3 reset 1\n", 5},
                                                  {begin + "6 2 reset\n", 5},
                                                  {begin + "6 2 explode 1\n", 5},
                                                  {begin + "6 2 control 1 e1 2a 1 00ff 8\n", 5},
                                                  {begin + "6 2 = 0\n", 5},
                                                  {begin + "6 left 1\n", 5},
                                                  {begin + "9223372036854775807 2 reset 1\n", 5},
                                                  {known + "7 2 = 0\n7 there 1 2\n", 7},
                                                  {begin + "6 2 reset 1", 5},
                                                  {call + "7 2 = 8 001122334455667g\n", 6},
                                                  {call + "7 2 = eight 0011223344556677\n", 6},
                                                  {in + "7 2 = 0 99999999999999999999 00112233\n", 6}}) {
        EXPECT_THAT(refusal(lines), HasSubstr("line " + std::to_string(line) + " ")) << lines;
    }
    std::istringstream later("kzq7306-usb-recording 2\n");
    std::string error;
    EXPECT_FALSE(readRecording(later, error));
    EXPECT_THAT(error, HasSubstr("line 1 "));
}

TEST(Recording, AFullDiskIsToldOnceAndHurtsNobody) {
    std::vector<std::string> told;
    RecordingFile file(Descriptor(::open("/dev/full", O_WRONLY | O_CLOEXEC)),
                       [&told](const std::string& sentence) { told.push_back(sentence); });
    file.write("one");
    file.write("two");
    EXPECT_THAT(told, ElementsAre(HasSubstr("No space left")));
}

}  // namespace
}  // namespace kzq::recorder
