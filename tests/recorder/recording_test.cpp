#include "device/recorder/recording.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "device/recorder/pcapng.h"

namespace kzq::recorder {
namespace {

/// The line that is wrong.
std::string refusal(const std::string& recording) {
    std::stringstream file(recording);
    const auto read = readRecording(file);
    EXPECT_FALSE(read) << recording;
    return read ? "" : read.error().where;
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
                                                  {begin + "6 2 explode 1\n", 5},
                                                  {begin + "6 2 control 1 e1 2a 1 00ff 8\n", 5},
                                                  {begin + "9223372036854775807 2 reset 1\n", 5},
                                                  {known + "7 2 = 0\n7 there 1 2\n", 7},
                                                  {begin + "6 2 reset 1", 5},
                                                  {call + "7 2 = 8 001122334455667g\n", 6},
                                                  {begin + "6 2 out 1 02 1 aabbcc\n", 5},
                                                  {in + "7 2 = 0 4294967296 00112233\n", 6}}) {
        EXPECT_EQ(refusal(std::string(recordingHeader) + "\n" + lines), "line " + std::to_string(line))
            << lines;
    }
    EXPECT_EQ(refusal("kzq7306-usb-recording 2\n"), "line 1");
}

TEST(Recording, BecomesACaptureWithOrWithoutTheAudio) {
    std::stringstream file(
        std::string(recordingHeader) +
        "\n0 1 open 1\n0 1 = 0\n"
        "5000007 2 control 1 e1 2a 0003 00ff 8\n5000009 2 = 8 1122334455667788\n"
        "5000010 3 in 1 81 4\n5000011 3 = 0 4 aabbccdd\n6000000 4 reset 1\n6000001 4 = 0\n");
    const auto recording = readRecording(file);
    ASSERT_TRUE(recording);
    const auto captured = [&](bool audio) {
        std::ostringstream out;
        writePcapng(out, *recording, audio);
        return out.str();
    };
    constexpr std::size_t head = 28 + 20;
    constexpr std::size_t packet = 32 + 64;
    const auto whole = captured(true);
    ASSERT_EQ(whole.size(), head + 4 * packet + 8 + 4) << "two calls, two ends, and their data";
    EXPECT_EQ(whole.substr(head + 28 + 8, 4), std::string("S\x02\x80\x01", 4));
    EXPECT_EQ(whole.substr(head + 28 + 16, 12), std::string("\5\0\0\0\0\0\0\0\7\0\0\0", 12)) << "the time";
    EXPECT_EQ(whole.substr(head + 28 + 40, 8), std::string("\xE1\x2A\3\0\xFF\0\x08\0", 8)) << "the request";
    EXPECT_THAT(whole, testing::HasSubstr("\xAA\xBB\xCC\xDD"));
    EXPECT_EQ(captured(false).size(), whole.size() - 4);
    EXPECT_THAT(captured(false), testing::Not(testing::HasSubstr("\xAA\xBB\xCC\xDD")));
}

}  // namespace
}  // namespace kzq::recorder
