#include "platform/free_space.h"

#include <gtest/gtest.h>

namespace kzq::test {
namespace {

TEST(FreeSpaceOf, AFolderThatIsStillToBeMadeIsThatOfTheOneAroundIt) {
    const auto there = freeSpace("/dev/shm/");
    ASSERT_TRUE(there);
    EXPECT_GT(*there, 0U);
    EXPECT_EQ(freeSpace("/dev/shm/kzq7306-not-there/").has_value(), true);
    EXPECT_EQ(freeSpace("/dev/shm/kzq7306-not-there/nor-there"), std::nullopt);
    EXPECT_EQ(freeSpace("/proc"), std::nullopt) << "it has no size";
    EXPECT_EQ(tooLittleSpace("/proc", ~std::uint64_t{0}), std::nullopt);
}

TEST(FreeSpaceOf, TooLittleIsSaidWithTheNumbers) {
    const FreeSpace thousand = [](const std::filesystem::path&) { return 1000; };
    EXPECT_EQ(tooLittleSpace("/a", 1000, thousand), std::nullopt);
    EXPECT_EQ(tooLittleSpace("/a", 381'024'044, thousand),
              (Trouble{Trouble::Kind::diskFull, "/a", 0, "381.0 MB are needed and 1.0 kB are free"}));
}

}  // namespace
}  // namespace kzq::test
