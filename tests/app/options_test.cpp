#include "app/program/options.h"

#include <gmock/gmock.h>

namespace kzq::test {

namespace {

using testing::ElementsAre;
using testing::StartsWith;

TEST(ProgramOptions, WhatIsWrongIsAUsageError) {
    using Words = std::vector<std::string>;
    for (const auto& wrong :
         {Words{"--simulate="}, Words{"--unplugged"}, Words{"--fault", "unplug@in"}, Words{"--fault"},
          Words{"--record="}, Words{"--in-flight", "33"}, Words{"--nonsense"}}) {
        const auto parsed = parseProgramOptions(wrong);
        EXPECT_FALSE(parsed.options) << wrong.front();
        EXPECT_EQ(parsed.status, 2);
        EXPECT_THAT(parsed.text, StartsWith("kzq7306: "));
    }
    const auto files = parseProgramOptions({"--simulate", "one.wav", "--unplugged", "two.wav"}).options;
    ASSERT_TRUE(files);
    EXPECT_THAT(files->files, ElementsAre("one.wav", "two.wav"));
    EXPECT_TRUE(files->simulatedFolder.empty());
}

}  // namespace

}  // namespace kzq::test
