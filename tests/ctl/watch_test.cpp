#include <algorithm>
#include <nlohmann/json.hpp>

#include "tool_fixture.h"

namespace kzq::test {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;

TEST_F(ToolTest, WatchTellsWhatHappens) {
    start({"watch"});
    executor.advance(1s);
    pedal.plugIn();
    executor.advance(1s);
    pedal.setLoop(4, std::nullopt);
    pedal.setLoop(6, loopOf(44'100, 1));
    pedal.setLoop(19, loopOf(1501, 30));
    executor.advance(10s);
    pedal.unplug();
    executor.advance(1s);
    pedal.setStage('b');
    pedal.plugIn();
    executor.advance(1s);
    tool->interrupt();
    EXPECT_EQ(code, ExitCode::cancelled);
    EXPECT_EQ(out.str(),
              "No pedal is connected; waiting for one.\n"
              "The pedal is connected.\n"
              "Firmware 1.05, 3 loops, 23 min 59 s of 24 min free.\n"
              "Loop 5: erased.\n"
              "Loop 7: new, 0:01.0, tempo 100.\n"
              "Loop 20: changed, 0:00.0, tempo 100.\n"
              "Firmware 1.05, 3 loops, 23 min 58 s of 24 min free.\n"
              "The pedal was unplugged.\n"
              "The pedal is connected. It is running only its loader and needs firmware.\n");
}

class SilentPedal : public ToolTest, public testing::WithParamInterface<const char*> {};

TEST_P(SilentPedal, WatchGoesOnAfterSilence) {
    plan(GetParam());
    pedal.plugIn();
    start({"watch", "--patience", "12"});
    executor.advance(20s);
    EXPECT_THAT(err.str(), HasSubstr("stopped answering"));
    EXPECT_FALSE(code);
    pedal.unplug();
    executor.advance(1s);
    pedal.plugIn();
    executor.advance(1s);
    EXPECT_THAT(out.str(), testing::ContainsRegex("The pedal is connected.\nFirmware 1.05[^\n]*\n$"));
}

INSTANTIATE_TEST_SUITE_P(Faults, SilentPedal, testing::Values("silence@E9", "silence@EB"));

TEST_F(ToolTest, WatchDoesNotTakeALostTableForSilence) {
    pedal.plugIn();
    pedal.setBusy(true);  // it plays: no poll asks for the table again
    plan("shorten@EB");
    start({"watch", "--patience", "12"});
    executor.advance(1min);
    EXPECT_EQ(err.str(), "");
    EXPECT_TRUE(std::ranges::none_of(pedal.journal(), [](const simulator::WireEvent& event) {
        return event.kind == simulator::WireEvent::Kind::reset;
    }));
    pedal.setBusy(false);
    executor.advance(5s);
    EXPECT_THAT(out.str(), HasSubstr("The pedal is connected.\nFirmware 1.05"));
}

}  // namespace
}  // namespace kzq::test
