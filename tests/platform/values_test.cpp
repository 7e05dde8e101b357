#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "platform/result.h"
#include "platform/unique_name.h"

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

TEST(UniqueName, AHiddenNameIsKnownAgain) {
    const auto name = hiddenName();
    EXPECT_NE(name, hiddenName());
    EXPECT_TRUE(isHiddenName(name));
    EXPECT_FALSE(isHiddenName(name.substr(1)));
    EXPECT_FALSE(isHiddenName(name + "~"));
}

TEST(UniqueName, AUuidIsOfTheRandomKind) {
    const auto uuid = freshUuid();
    const std::string four = "[0-9A-F][0-9A-F][0-9A-F][0-9A-F]";
    EXPECT_THAT(uuid, MatchesRegex(four + four + "-" + four + "-4" + four.substr(8) + "-[89AB]" +
                                   four.substr(8) + "-" + four + four + four));
    EXPECT_NE(uuid, freshUuid());
}

}  // namespace
}  // namespace kzq
