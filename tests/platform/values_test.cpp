#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "platform/result.h"

namespace kzq {
namespace {

using Kind = Trouble::Kind;
using testing::Each;
using testing::MatchesRegex;

TEST(Trouble, NamesAreWordsAndDiffer) {
    std::set<std::string_view> names;
    for (auto kind = 0U; kind <= static_cast<unsigned>(Kind::nobodyToAsk); ++kind) {
        EXPECT_TRUE(names.insert(troubleName(static_cast<Kind>(kind))).second) << kind;
    }
    EXPECT_THAT(names, Each(MatchesRegex("[a-z]+(-[a-z]+)*")));
}

}  // namespace
}  // namespace kzq
