#include "platform/digest.h"

#include <gtest/gtest.h>
#include <sys/mman.h>

#include <algorithm>
#include <string_view>

namespace kzq {
namespace {

std::span<const std::uint8_t> view(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};  // NOLINT(*-reinterpret-cast)
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
    std::vector<std::span<const std::uint8_t>> pieces = {{}, view("bc"), view("a")};
    EXPECT_EQ(SHA256StringOf([&pieces] {
                  const auto piece = pieces.back();
                  pieces.pop_back();
                  return piece;
              }),
              SHA256String(view("abc")));
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
}  // namespace kzq
