#include "app/program/options.h"

#include <gmock/gmock.h>

namespace kzq::test {

namespace {

using testing::ElementsAre;
using testing::StartsWith;

TEST(ProgramOptions, ThePedalIsTheRealOneUnlessToldOtherwise) {
    const auto plain = parseProgramOptions({}).options.value();
    EXPECT_FALSE(plain.simulate || plain.unplugged);
    const auto built = parseProgramOptions({"--simulate", "--unplugged"}).options.value();
    EXPECT_TRUE(built.simulate && built.unplugged && built.simulatedFolder.empty());
    const auto folder =
        parseProgramOptions({"--fault", "unplug@in:3", "--simulate=/my loops", "--host", "a:1"})
            .options.value();
    EXPECT_TRUE(folder.simulate);
    EXPECT_EQ(folder.simulatedFolder, "/my loops");
    EXPECT_THAT(folder.faults, ElementsAre("unplug@in:3"));
    EXPECT_EQ(folder.host, "a:1");
}

TEST(ProgramOptions, WhatIsWrongIsAUsageError) {
    using Words = std::vector<std::string>;
    for (const auto& wrong :
         {Words{"--simulate="}, Words{"--unplugged"}, Words{"--fault", "unplug@in"}, Words{"--fault"},
          Words{"--nonsense"}, Words{"file.wav"}, Words{"--simulate", "folder"}}) {
        const auto parsed = parseProgramOptions(wrong);
        EXPECT_FALSE(parsed.options) << wrong.front();
        EXPECT_EQ(parsed.status, 2);
        EXPECT_THAT(parsed.text, StartsWith("kzq7306: "));
    }
}

}  // namespace

}  // namespace kzq::test
