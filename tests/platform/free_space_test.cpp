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

}  // namespace
}  // namespace kzq::test
