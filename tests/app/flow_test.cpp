#include <gtest/gtest.h>

#include "app/flow/flows.h"
#include "virtual_executor.h"

namespace kzq::test {

namespace {

using namespace std::chrono_literals;

struct FlowsTest : testing::Test {
    ~FlowsTest() override { executor.endJobs(); }

    VirtualExecutor executor;
    std::shared_ptr<int> window = std::make_shared<int>();
    std::optional<Flows> flows{std::in_place, executor, FlowWindow{window, {}, {}, {}},
                               [] { return nullptr; }};
};

TEST_F(FlowsTest, AWindowThatGoesIsNotAskedAnyMore) {
    std::optional<bool> asked;
    flows->start({}, [&asked](auto& run) { asked = run.ask([] { FAIL(); }); });
    executor.main([this] {  // before the question, for which the flow waits by then
        window.reset();
        flows.reset();
    });
    executor.advance(1min);
    EXPECT_EQ(asked, false);
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

}  // namespace

}  // namespace kzq::test
