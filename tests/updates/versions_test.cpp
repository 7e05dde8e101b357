#include <gtest/gtest.h>
#include <sys/mman.h>

#include <string>
#include <string_view>

#include "updates/digest.h"
#include "updates/firmware_version.h"

using namespace kzq;
using namespace std::string_view_literals;

namespace {

constexpr FirmwareVersion unknown{};

std::span<const std::uint8_t> view(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};  // NOLINT(*-reinterpret-cast)
}

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

TEST(Digest, PublishedVectors) {
    EXPECT_EQ(MD5String(view("abc")), "900150983cd24fb0d6963f7d28e17f72");
    EXPECT_EQ(MD5String(view("")), "d41d8cd98f00b204e9800998ecf8427e") << "empty, but with a pointer";
    const std::vector<std::uint8_t> sha = {0xba, 0x78, 0x16, 0xbf, 0x8f, 0x01, 0xcf, 0xea, 0x41, 0x41, 0x40,
                                           0xde, 0x5d, 0xae, 0x22, 0x23, 0xb0, 0x03, 0x61, 0xa3, 0x96, 0x17,
                                           0x7a, 0x9c, 0xb4, 0x10, 0xff, 0x61, 0xf2, 0x00, 0x15, 0xad};
    EXPECT_EQ(SHA256(view("abc")), sha);
    EXPECT_EQ(hash(view("abc"), -1), sha) << "every choice but 0";
    EXPECT_EQ(hash(view("abc"), 0), MD5(view("abc")));
}

TEST(Digest, NoPointerNoDigest) {
    EXPECT_EQ(hash({}, 0), std::nullopt);
    EXPECT_EQ(SHA256({}), std::nullopt);
    EXPECT_EQ(MD5String({}), std::nullopt);
}

TEST(Digest, CountsLengthsIn32Bits) {
    constexpr std::size_t size = (std::size_t{1} << 32U) + 3;
    void* const memory =
        mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    ASSERT_NE(memory, MAP_FAILED);
    auto* const bytes = static_cast<std::uint8_t*>(memory);
    std::copy_n("abc", 3, bytes);
    EXPECT_EQ(MD5String({bytes, size}), MD5String(view("abc")));
}

}  // namespace
