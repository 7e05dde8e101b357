#include <gtest/gtest.h>

#include <random>

#include "app/flow/flows.h"
#include "virtual_executor.h"

namespace kzq::test {

namespace {

using namespace std::chrono_literals;

struct FlowsTest : testing::Test {
    ~FlowsTest() override { executor.endJobs(); }

    VirtualExecutor executor;
    bool shield = false;
    int busy = 0;
    std::shared_ptr<int> window = std::make_shared<int>();
    std::optional<Flows> flows{
        std::in_place, executor,
        FlowWindow{window, [this](bool up) { EXPECT_NE(std::exchange(shield, up), up); }, [this] { ++busy; },
                   [] {}},
        [] { return nullptr; }};
};

TEST_F(FlowsTest, EveryWayOutOfAFlowGivesItsTurnBack) {
    std::mt19937 random(7306);  // NOLINT: always the same
    for (int round = 0; round < 200; ++round) {
        const auto steps = random();
        bool ran = false;
        flows->start({}, [&](auto& run) {
            ran = true;
            executor.sleep(1ms);
            EXPECT_EQ(run.ask([&] { return executor.onMainThread(); }), true);
            if ((steps & 1U) != 0) {
                return;
            }
            EXPECT_TRUE(run.ask([&] { run.turn.cover(); }));
            executor.sleep(1ms);
            if ((steps & 2U) != 0) {
                EXPECT_TRUE(run.ask([&] { run.turn.end(); }));
                executor.sleep(1ms);  // the turn is over, and the flow is not
            }
        });
        EXPECT_TRUE(flows->starting());
        flows->start({}, [](auto&) { FAIL() << "two at a time"; });
        EXPECT_EQ(busy, 0);
        executor.advance(1ms);
        EXPECT_TRUE(ran);
        EXPECT_EQ(shield, (steps & 1U) == 0);
        flows->start({}, [](auto&) {});
        EXPECT_EQ(std::exchange(busy, 0), shield ? 1 : 0);
        executor.advance(1ms);
        EXPECT_FALSE(shield || flows->starting());
    }
    flows->start({}, [](auto& run) { run.ask([&] { (run.turn.cover(), run.turn.leaveCovered()); }); });
    executor.settle();
    EXPECT_TRUE(shield);
    EXPECT_FALSE(flows->take() || flows->starting());
}

TEST_F(FlowsTest, AWindowThatGoesEndsWhatWaitsForIt) {
    // The one whose question stands still has it answered; nobody else gets in any more.
    bool answered = false;
    std::optional<bool> later;
    flows->start({}, [&](auto& run) {
        EXPECT_EQ(run.ask([&] {
            run.turn.cover();
            window.reset();
            flows.reset();
            executor.advance(1s);  // an event loop
            EXPECT_FALSE(answered || later);
            return 5;
        }),
                  5);
        answered = true;
        later = run.ask([] { FAIL(); });
        EXPECT_FALSE(run.idle());
    });
    executor.advance(1min);
    EXPECT_TRUE(answered);
    EXPECT_EQ(later, false);
}

TEST_F(FlowsTest, AFlowThatStandsBeforeAWindowThatGoesReturns) {
    std::vector<bool> answers;
    flows->start({}, [&](auto& run) { answers.push_back(run.ask([] { FAIL(); })); });
    executor.main([this] {
        window.reset();
        flows.reset();
    });
    executor.settle();
    EXPECT_EQ(answers, std::vector{false});
}

}  // namespace

}  // namespace kzq::test
