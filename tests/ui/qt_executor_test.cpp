#include "platform/qt_executor.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QThread>
#include <atomic>
#include <future>
#include <memory>
#include <vector>

using namespace std::chrono_literals;

namespace kzq {
namespace {

TEST(QtExecutor, RunsMainTasksInOrderOnTheApplicationsThread) {
    QtExecutor executor;
    std::vector<int> order;
    executor.main([&] { order.push_back(1); });
    executor.background(Priority::high, [&] {
        EXPECT_NE(QThread::currentThread(), qApp->thread());
        executor.main([&] {
            EXPECT_EQ(QThread::currentThread(), qApp->thread());
            order.push_back(2);
        });
        executor.mainAfter(-1s, [&] { order.push_back(3); });
        executor.mainAfter(1h, [] { FAIL() << "it holds back what is due sooner, or comes early"; });
        const auto start = executor.now();
        executor.mainAfter(5ms, [&, start] {
            EXPECT_GE(executor.now() - start, 5ms);
            order.push_back(4);
            QCoreApplication::exit(7);
        });
    });
    EXPECT_EQ(QCoreApplication::exec(), 7);
    EXPECT_EQ(order, (std::vector{1, 2, 3, 4}));
}

TEST(QtExecutor, DropsWhatIsQueuedAndWaitsForWhatRuns) {
    const auto token = std::make_shared<int>();
    std::atomic<bool> finished = false;
    {
        QtExecutor executor;
        std::promise<void> running;
        executor.mainAfter(1h, [token] { FAIL(); });
        executor.main([token] { FAIL(); });
        executor.background(Priority::standard, [&] {
            running.set_value();
            std::mutex mutex;
            std::unique_lock lock(mutex);
            std::condition_variable never;
            EXPECT_FALSE(never.wait_for(lock, 20ms, [] { return false; }));
            executor.main([token] { FAIL(); });
            finished = true;
        });
        running.get_future().wait();
    }
    EXPECT_TRUE(finished);
    EXPECT_EQ(token.use_count(), 1);
    QCoreApplication::processEvents();
}

}  // namespace
}  // namespace kzq
