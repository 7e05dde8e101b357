#include "app/absence.h"

#include <gtest/gtest.h>

#include <QLabel>

#include "app/main_window.h"
#include "virtual_executor.h"

namespace kzq::test {

namespace {

using namespace std::chrono_literals;

TEST(Absence, LooksAtOnceAndEveryFiveSecondsForAsLongAsNoPedalIsThere) {
    VirtualExecutor executor;
    MainWindow window;
    auto& shown = *window.findChild<QLabel*>("emptyRemedy");
    int looks = 0;
    const auto absence = Absence::watch(executor, window, [&] {
        EXPECT_FALSE(executor.onMainThread());
        executor.sleep(1s);
        return "look " + std::to_string(++looks);
    });
    EXPECT_TRUE(shown.isHidden());
    executor.advance(1s);
    EXPECT_EQ(shown.text(), "look 1");
    EXPECT_FALSE(shown.isHidden());
    executor.advance(4999ms + 1s);
    EXPECT_EQ(looks, 1);
    executor.advance(1ms);
    EXPECT_EQ(shown.text(), "look 2");
    // The pedal arrives and leaves during the next look, which is then ignored.
    executor.advance(5s + 500ms);
    window.showMeter(true);
    window.showMeter(false);
    EXPECT_EQ(shown.text(), "");  // the earlier obstacle is gone
    executor.advance(500ms);
    EXPECT_EQ(looks, 3);
    EXPECT_EQ(shown.text(), "");
    executor.advance(500ms);
    EXPECT_EQ(looks, 4);
    EXPECT_EQ(shown.text(), "look 4");
}

}  // namespace

}  // namespace kzq::test
