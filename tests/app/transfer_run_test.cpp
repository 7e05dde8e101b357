#include "app/transfer_run.h"

#include <gmock/gmock.h>

#include <vector>

#include "virtual_executor.h"

namespace kzq::test {

namespace {

using namespace std::chrono_literals;

TEST(TransferRun, NoMoreFractionsComeThanTheEyeSeesAndTheNewestIsNeverMissing) {
    VirtualExecutor executor;
    std::vector<double> told;
    const auto post = [&](auto task) { executor.main(task); };
    TransferRun run(executor, post, 1000, [&](double fraction) { told.push_back(fraction); });
    executor.background(Priority::high, [&] {
        for (unsigned bytes = 1; bytes <= 500; ++bytes) {
            executor.sleep(1ms);
            run.moved(bytes);
        }
        executor.sleep(500ms);
        run.moved(600);
        run.loopDone(544, [&] { told.push_back(2); });
    });
    executor.advance(999ms);
    EXPECT_THAT(told.size(), testing::AllOf(testing::Gt(10U), testing::Lt(18U)));
    EXPECT_EQ(told.back(), 0.5);
    told.clear();
    executor.advance(1s);
    EXPECT_THAT(told, testing::ElementsAre(0.544, 2));
}

}  // namespace

}  // namespace kzq::test
