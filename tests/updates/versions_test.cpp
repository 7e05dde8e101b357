#include <gtest/gtest.h>

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
    for (const auto text : {""sv, "1."sv, "1.5"sv, "1.050"sv, "1.05\n"sv, "1.05\0"sv, "1.05B"sv}) {
        EXPECT_EQ(FirmwareVersionFromString(text), unknown) << '"' << text << '"';
    }
}

}  // namespace
