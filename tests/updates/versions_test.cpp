#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "updates/firmware_version.h"

using namespace kzq;
using namespace std::string_view_literals;

namespace {

constexpr FirmwareVersion unknown{};

TEST(FirmwareVersion, ReadsWhatThePatternAccepts) {
    EXPECT_EQ(FirmwareVersionFromString("1.05"), (FirmwareVersion{1, 5, 0}));
    EXPECT_EQ(FirmwareVersionFromString("1.05b"), (FirmwareVersion{1, 5, 0})) << "the letter never counts";
    EXPECT_EQ(FirmwareVersionFromString("10.10z"), (FirmwareVersion{10, 10, 0}));
    EXPECT_EQ(FirmwareVersionFromString("007.00"), (FirmwareVersion{7, 0, 0}));
    EXPECT_EQ(FirmwareVersionFromString("0.00"), unknown);
    EXPECT_EQ(FirmwareVersionFromString("18446744073709551615.99"), (FirmwareVersion{UINT64_MAX, 99, 0}));
    EXPECT_EQ(FirmwareVersionFromString("18446744073709551616.01"), (FirmwareVersion{UINT64_MAX, 1, 0}));
}

TEST(FirmwareVersion, EverythingElseIsUnknown) {
    for (const auto text : {std::string_view{}, ""sv, "."sv, "1"sv, "1."sv, ".05"sv, "1.5"sv, "1.050"sv,
                            "v1.05"sv, " 1.05"sv, "1.05 "sv, "1.05\n"sv, "1.05\0"sv, "1.05B"sv, "1.05ab"sv,
                            "1.05.06"sv, "-1.05"sv, "1,05"sv, "\xD9\xA1.05"sv}) {
        EXPECT_EQ(FirmwareVersionFromString(text), unknown) << '"' << text << '"';
    }
}

TEST(FirmwareVersion, OrdersByMajorThenMinorThenSuffix) {
    EXPECT_LT((FirmwareVersion{1, 5, 0}), (FirmwareVersion{1, 6, 0}));
    EXPECT_LT((FirmwareVersion{1, 99, 255}), (FirmwareVersion{2, 0, 0}));
    EXPECT_LT((FirmwareVersion{1, 5, 127}), (FirmwareVersion{1, 5, 128})) << "suffixes compare unsigned";
    EXPECT_FALSE(FirmwareVersionFromString("1.05a") < FirmwareVersionFromString("1.05b"));
    EXPECT_LT(FirmwareVersionFromString("9.99"), FirmwareVersionFromString("10.00"));
}

TEST(NumberWithString, TakesWholeDecimalTextsOnly) {
    EXPECT_EQ(numberWithString("07"), 7.0);
    EXPECT_EQ(numberWithString("-12.5"), -12.5);
    for (const auto text : {std::string_view{}, ""sv, "a"sv, "5a"sv, " 5"sv, "5 "sv, "-"sv, "."sv, "--5"sv,
                            "1.2.3"sv, "1e3"sv, "0x10"sv, "inf"sv, "nan"sv, "5\0"sv}) {
        EXPECT_EQ(numberWithString(text), std::nullopt) << '"' << text << '"';
    }
}

}  // namespace
