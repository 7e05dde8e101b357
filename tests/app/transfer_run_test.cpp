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
    TransferRun run(executor, 1000,
                    {[&](double fraction) { told.push_back(std::to_string(fraction).substr(0, 4)); },
                     [&](std::uint8_t slot) { told.push_back("loop " + std::to_string(slot)); },
                     [&] { told.emplace_back("end"); }});
    executor.background(Priority::high, [&] {
        for (unsigned bytes = 1; bytes <= 500; ++bytes) {
            run.moved(bytes);
        }
        executor.sleep(1s);
        run.moved(600);
        run.add(544);
        run.loopDone(7);
        run.finished();
    });
    executor.settle();
    EXPECT_THAT(told, ElementsAre("0.50"));
    executor.advance(1s);
    EXPECT_THAT(told, ElementsAre("0.50", "0.60", "0.54", "loop 7", "end"));
}

}  // namespace

}  // namespace kzq::test
