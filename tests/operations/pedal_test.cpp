#include "operations/pedal.h"

#include "operation_fixture.h"

namespace kzq::test {
namespace {

using Kind = Trouble::Kind;

class PedalWork : public OperationTest {
  protected:
    /// One loop is read; why that ended.
    std::string read(SlotNumber slot) {
        return run([&] {
            const auto end = work->importLoops(
                {slot}, [](auto...) {},
                [this](auto, const auto& image) { came += image ? "came " : "failed "; });
            return end ? "" : std::string(troubleName(end.error().kind));
        });
    }
    void cancelAt(std::uint8_t code) {
        port.tamper = [this, code](std::uint8_t request, auto) {
            if (request == code) {
                port.tamper = {};
                executor.main([this] { cancel(); });
                executor.sleep(10ms);
            }
        };
    }

    /// The watch for silence looks four times a second.
    static auto isAbout(Executor::Duration time) {
        return testing::AllOf(testing::Ge(time), testing::Le(time + 250ms));
    }

    std::string came;
};

TEST_F(PedalWork, ASilentPedalIsResetAndThenLeftBehindWhereThatIsWanted) {
    hold({.silence = 12s});
    plan("silence@in:2");
    EXPECT_EQ(read(3_slot), "silent");
    EXPECT_THAT(executor.elapsed(), isAbout(12s + 500ms));
    EXPECT_EQ(came, "failed ");
    EXPECT_EQ(read(3_slot), "silent") << "nothing more is begun";

    for (const bool leaveBehind : {false, true}) {
        hold({.silence = 12s, .leaveBehind = leaveBehind});
        came.clear();
        const auto before = executor.elapsed();
        plan("silence@in:2");
        plan("silence@EF");
        EXPECT_EQ(read(3_slot), "silent");
        EXPECT_THAT(executor.elapsed() - before, isAbout(12s + 2500ms)) << "by the second reset, or behind";
        EXPECT_EQ(came, "failed ");
    }
    hold({.silence = 12s, .leaveBehind = true});
    plan("silence@E9");
    const auto before = executor.elapsed();
    EXPECT_EQ(run([this] { return work->status().error().kind; }), Kind::silent);
    EXPECT_THAT(executor.elapsed() - before, isAbout(12s));
}

TEST_F(PedalWork, WhoHasGivenUpHearsNothingMore) {
    hold({.silence = 5s, .leaveBehind = true});
    plan("silence@E1");
    port.tamper = [this](std::uint8_t request, auto) { executor.sleep(request == 0xE1 ? 1min : 0s); };
    EXPECT_EQ(read(3_slot), "silent");
    executor.advance(2min);
    EXPECT_EQ(came, "");
}

TEST_F(PedalWork, ACancelCountsWheneverItComes) {
    executor.main([this] { executor.main([this] { cancel(); }); });  // before the link is asked
    EXPECT_EQ(read(3_slot), "cancelled");
    EXPECT_THAT(wire(), IsEmpty());
    for (const bool eager : {false, true}) {
        executor.eager = eager;
        hold({});
        cancelAt(wire::busy.code);  // before the link has accepted
        EXPECT_EQ(read(3_slot), "cancelled");
        EXPECT_THAT(wire(), ElementsAre("E8 1 0", "reset", "EF 1 0"));
    }
    hold({});
    cancelAt(wire::importLoop.code);
    EXPECT_EQ(read(3_slot), "cancelled");
    EXPECT_EQ(count("reset"), 1);
    EXPECT_LT(executor.elapsed(), 1s);

    hold({});
    port.pace = 60ms;
    executor.mainAfter(100ms, [this] { cancel(); });
    EXPECT_EQ(read(3_slot), "cancelled");
    const auto first = work;
    hold({});
    EXPECT_EQ(read(3_slot), "") << "it ends its own run only";
}

TEST_F(PedalWork, WhatIsAsideIsLeftAtOnce) {
    executor.mainAfter(1s, [this] { work->left(); });
    EXPECT_FALSE(run([this] { return work->aside([this] { executor.sleep(1h); }); }));
    EXPECT_EQ(executor.elapsed(), 1s);
    EXPECT_FALSE(run([this] { return work->aside([] {}); }));
}

}  // namespace
}  // namespace kzq::test
