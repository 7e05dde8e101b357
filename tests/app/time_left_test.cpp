#include "app/time_left.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <regex>

namespace kzq::test {

namespace {

using namespace std::chrono_literals;

/// 0 if they say nothing.
int secondsIn(const std::string& words) {
    static const std::regex form("about (\\d+) (s|min) left");
    std::smatch parts;
    if (words.empty()) {
        return 0;
    }
    EXPECT_TRUE(std::regex_match(words, parts, form)) << words;
    return std::stoi(parts[1]) * (parts[2] == "min" ? 60 : 1);
}

TEST(TimeLeft, IsNeverFarFromTheTruthAtASteadySpeed) {
    for (const int total : {20, 75, 400}) {
        TimeLeft left({});
        int last = std::numeric_limits<int>::max();
        for (int quarter = 0; quarter <= 4 * total; ++quarter) {
            const TimeLeft::TimePoint now(quarter * 250ms);
            left.moved(now, quarter / (4.0 * total));
            const auto said = secondsIn(left.words(now));
            if (now.time_since_epoch() < 4s) {
                EXPECT_EQ(said, 0);
                continue;
            }
            const double truth = total - quarter / 4.0;
            EXPECT_GT(said, 0);
            EXPECT_LE(said, last);
            EXPECT_LE(std::abs(said - truth), truth > 60 ? 30.1 : truth > 30 ? 10.1 : 5.1) << total;
            last = said;
        }
        EXPECT_EQ(last, 5) << "never none";
    }
}

TEST(TimeLeft, SaysNothingInAStandstillAndNeverMoreThanBefore) {
    TimeLeft left({});
    double done = 0;
    int last = std::numeric_limits<int>::max();
    for (int second = 1; second <= 120; ++second) {
        const TimeLeft::TimePoint now(second * 1s);
        done += second <= 20   ? 0.025
                : second <= 80 ? 0
                               : 0.0125;  // 20 s before the end it stops for a minute
        left.moved(now, done);
        left.moved(now, second / 500.0);  // of one loop
        left.moved(now, std::numeric_limits<double>::quiet_NaN());
        const auto said = secondsIn(left.words(now));
        EXPECT_TRUE(second < 25 || second > 100 || said == 0) << second;
        EXPECT_LE(said, last);
        last = said == 0 ? last : said;
    }
    EXPECT_EQ(last, 5);
}

}  // namespace

}  // namespace kzq::test
