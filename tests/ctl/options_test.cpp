#include "ctl/speech/options.h"

#include <gmock/gmock.h>

namespace kzq::ctl {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(Options, GlobalOnesStandAnywhere) {
    for (const auto& words : std::vector<std::vector<std::string>>{
             {"--json", "--wait", "1.5", "import", "8", "3-5", "4", "--to", "x", "--simulate"},
             {"--simulate", "import", "3-5", "8", "--to", "x", "--json", "--wait=1.5"},
             {"import", "--to", "x", "--simulate", "3", "4", "5", "--wait", "1.5", "08", "--json"}}) {
        const auto parsed = parseOptions(words);
        ASSERT_TRUE(parsed.options) << parsed.text;
        EXPECT_EQ(parsed.options->subcommand, Subcommand::import);
        EXPECT_THAT(parsed.options->slots, ElementsAre(3_slot, 4_slot, 5_slot, 8_slot));
        EXPECT_TRUE(parsed.options->json && parsed.options->simulate);
        EXPECT_THAT(parsed.options->simulatedFolder.string(), IsEmpty());
        EXPECT_EQ(parsed.options->wait, 1500ms);
        EXPECT_EQ(parsed.options->patience, 30s);
        EXPECT_EQ(parsed.options->folder, "x");
    }
    const auto parsed =
        parseOptions({"--fault", "stall@in", "--fault", "refuse@E1", "list", "--simulate=some folder"});
    ASSERT_TRUE(parsed.options) << parsed.text;
    EXPECT_EQ(parsed.options->subcommand, Subcommand::list);
    EXPECT_EQ(parsed.options->simulatedFolder, "some folder");
    EXPECT_THAT(parsed.options->faults, ElementsAre("stall@in", "refuse@E1"));
}

TEST(Options, BadOnesAreUsageErrors) {
    for (const auto& words :
         std::vector<std::vector<std::string>>{{},
                                               {"erase"},
                                               {"export", "a", "--slot", "0x8"},
                                               {"export", "a", "--slot", "1", "--first-free"},
                                               {"export", "a", "b", "--slot", "20"},
                                               {"convert", "a", "--to", "-", "--json"},
                                               {"backup", ""},
                                               {"restore", "x", "21"},
                                               {"restore", "x", "--snapshot", ""},
                                               {"list", "--wait", "nan"},
                                               {"list", "--in-flight", "33"},
                                               {"list", "--in-flight", "0"},
                                               {"list", "--fault", "stall@in"},
                                               {"import", "1"},
                                               {"import", "--to", "x"},
                                               {"import", "--to", "x", "19-21"},
                                               {"import", "--to", "x", "4294967297"}}) {
        const auto parsed = parseOptions(words);
        EXPECT_FALSE(parsed.options) << testing::PrintToString(words);
        EXPECT_EQ(parsed.code, ExitCode::usage) << testing::PrintToString(words);
        EXPECT_FALSE(parsed.text.empty() || parsed.text.find('\n') != std::string::npos) << parsed.text;
    }
}

TEST(Options, ANumberIsTheSameSlotInEveryCommandAndAFileIsOneFile) {
    const auto parsed = parseOptions({"export", "[a,b]", "--slot", "010"});
    ASSERT_TRUE(parsed.options) << parsed.text;
    EXPECT_EQ(parsed.options->slot, 10_slot);
    EXPECT_THAT(parsed.options->files, ElementsAre("./[a,b]"));
}

TEST(Options, MistakesAreNamedWithWhatWasMeant) {
    const auto sentence = [](std::vector<std::string> words) { return parseOptions(std::move(words)).text; };
    EXPECT_THAT(sentence({"lst", "3"}), HasSubstr("There is no command \"lst\". Did you mean list?"));
    EXPECT_THAT(sentence({"frobnicate"}), testing::Not(HasSubstr("mean")));
    EXPECT_THAT(sentence({"list", "--jsn"}), HasSubstr("There is no option \"--jsn\". Did you mean --json?"));
    EXPECT_THAT(sentence({"erase", "1", "19-21"}),
                HasSubstr("There is no slot 21; slots are numbered 1 to 20."));
    EXPECT_TRUE(parseOptions({"--json", "lst"}).json);
    EXPECT_FALSE(parseOptions({"export", "--", "--json"}).json);
}

}  // namespace
}  // namespace kzq::ctl
