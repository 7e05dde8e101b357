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
    std::string holder = "unknown";
    const auto look = [&] {
        EXPECT_FALSE(executor.onMainThread());
        executor.sleep(1s);
        const auto words = "look " + std::to_string(++looks);
        return std::vector{Finding{Trouble::Kind::heldByAnother, true, words, {}, words}};
    };
    const auto absence =
        Absence::watch(executor, window, look, [&holder](const auto& words) { holder = words; });
    EXPECT_TRUE(shown.isHidden());
    EXPECT_EQ(holder, "");
    executor.advance(1s);
    EXPECT_EQ(holder, "look 1 is using the pedal");
    EXPECT_EQ(shown.text(), "look 1");
    EXPECT_FALSE(shown.isHidden());
    executor.advance(4999ms + 1s);
    EXPECT_EQ(looks, 1);
    executor.advance(1ms);
    EXPECT_EQ(shown.text(), "look 2");
    // The pedal arrives and leaves during the next look, which is then ignored.
    executor.advance(5s + 500ms);
    window.showMeter(true);
    EXPECT_EQ(holder, "");
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
