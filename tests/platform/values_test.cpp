#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "platform/result.h"

namespace kzq {
namespace {

using Kind = Trouble::Kind;
using testing::Each;
using testing::MatchesRegex;

TEST(Trouble, NamesAreStableWordsAndDiffer) {
    EXPECT_EQ(troubleName(Kind::noPedal), "no-pedal");
    EXPECT_EQ(troubleName(Kind::heldByAnother), "held-by-another");
    EXPECT_EQ(troubleName(Kind::emptySlot), "empty-slot");
    EXPECT_EQ(troubleName(Kind::file), "file");
    std::set<std::string_view> names;
    for (auto kind = 0U; kind <= static_cast<unsigned>(Kind::nobodyToAsk); ++kind) {
        EXPECT_TRUE(names.insert(troubleName(static_cast<Kind>(kind))).second) << kind;
    }
    EXPECT_THAT(names, Each(MatchesRegex("[a-z]+(-[a-z]+)*")));
}

}  // namespace
}  // namespace kzq
