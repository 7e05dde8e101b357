#include <algorithm>
#include <array>

#include "tool_fixture.h"

namespace kzq::test {
namespace {

using ctl::Answer;
using testing::HasSubstr;
using testing::IsEmpty;

TEST_F(ToolTest, EraseAsksAndTellsWhatIsEmptyAlready) {
    pedal.plugIn();
    EXPECT_EQ(run({"erase", "2-4"}), ExitCode::usage);
    EXPECT_EQ(sent(0xED), 0);
    answer = [] { return Answer::yes; };
    EXPECT_EQ(run({"erase", "2-4"}), ExitCode::ok);
    EXPECT_EQ(questions.back(), "Erased loop audio cannot be restored. Would you like to continue?");
    EXPECT_EQ(out.str(),
              "Slot 3 is already empty.\nSlot 4 is already empty.\nLoop 2: will be erased (0:00.0).\n"
              "Loop 2: erased.\n1 loop erased.\n");
    EXPECT_EQ(run({"erase", "2"}), ExitCode::ok);
    EXPECT_THAT(out.str(), HasSubstr("There is nothing to erase.\n"));
    EXPECT_EQ(questions.size(), 2U);
    EXPECT_EQ(run({"erase", "--all", "--yes"}), ExitCode::ok);
    EXPECT_EQ(pedal.memory(), simulator::PedalMemory());
    EXPECT_EQ(sent(0xED), 3);
    EXPECT_THAT(pedal.violations(), IsEmpty());
}

TEST_F(ToolTest, ALengthThatCannotBeIsNeitherSavedNorTouched) {
    pedal.plugIn();
    port.tamper = [](std::uint8_t request, std::span<std::uint8_t> reply) {
        if (request == 0xEB) {  // loop 2: 715,827,882 frames, whose 4.3 GB are rounded up to 0 bytes
            std::ranges::copy(std::array<std::uint8_t, 4>{0xAA, 0xAA, 0xAA, 0x2A}, reply.begin() + 6);
        }
    };
    freeBytes = 100'000;
    EXPECT_EQ(import({"--all"}), ExitCode::someFailed);
    EXPECT_THAT(err.str(), HasSubstr("Loop 2 was not saved: the pedal reports it as longer than 24 minutes"));
    EXPECT_EQ(run({"backup", folder / "backup"}), ExitCode::someFailed);
    EXPECT_THAT(err.str(), HasSubstr("Loop 2 was not saved: the pedal reports it as longer than 24 minutes"));
    EXPECT_FALSE(std::filesystem::exists(folder / "backup" / stamp));
    const auto file = writeWave("a.wav", loopOf(700, 40));
    for (const auto& arguments :
         std::vector<std::vector<std::string>>{{"erase", "2", "5", "--yes"},
                                               {"export", file, "--yes"},
                                               {"export", file, "--slot", "2", "--yes"}}) {
        EXPECT_EQ(run(arguments), ExitCode::pedalRefused);
        EXPECT_THAT(err.str(), HasSubstr("Loop 2: the pedal reports it as longer than 24 minutes"));
    }
    EXPECT_EQ(run({"erase", "5", "--yes"}), ExitCode::ok);
    EXPECT_EQ(sent(0xE2), 0);
    EXPECT_TRUE(pedal.memory()[1]);
    port.tamper = {};
    EXPECT_EQ(run({"backup", folder / "backup"}), ExitCode::ok);
}

}  // namespace
}  // namespace kzq::test
