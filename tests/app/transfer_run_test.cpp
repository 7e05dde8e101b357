#include "app/transfer_run.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "virtual_executor.h"

namespace kzq::test {

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

TEST(TransferRun, OneFractionIsOnItsWayAtMostAndTheNewestIsTold) {
    VirtualExecutor executor;
    std::vector<std::string> told;
    TransferRun run([&](auto task) { executor.main(task); }, 1000,
                    [&](double fraction) { told.push_back(std::to_string(fraction).substr(0, 4)); });
    executor.background(Priority::high, [&] {
        for (unsigned bytes = 1; bytes <= 500; ++bytes) {
            run.moved(bytes);
        }
        executor.sleep(1s);
        run.moved(600);
        run.loopDone(544, [&] { told.emplace_back("loop"); });
    });
    executor.settle();
    EXPECT_THAT(told, ElementsAre("0.50"));
    executor.advance(1s);
    EXPECT_THAT(told, ElementsAre("0.50", "0.60", "0.54", "loop"));
}

}  // namespace

}  // namespace kzq::test
