#include "ctl/options.h"

#include <gmock/gmock.h>

#include "ctl/format.h"
#include "ctl/progress_meter.h"
#include "loops/facts.h"

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
        EXPECT_THAT(parsed.options->slots, ElementsAre(3, 4, 5, 8));
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

TEST(Options, FilesMayHaveAnyName) {
    const auto parsed =
        parseOptions({"export", "--slot", "19", "--verify", "--yes", "--", "-x.wav", "concat:a|b"});
    ASSERT_TRUE(parsed.options) << parsed.text;
    EXPECT_THAT(parsed.options->files, ElementsAre("-x.wav", "concat:a|b"));
    EXPECT_EQ(parsed.options->slot, 19);
    EXPECT_TRUE(parsed.options->verify && parsed.options->yes);
    EXPECT_FALSE(parseOptions({"export", "a", "--first-free"}).options->slot);
}

TEST(Options, BadOnesAreUsageErrors) {
    for (const auto& words :
         std::vector<std::vector<std::string>>{{},
                                               {"erase"},
                                               {"erase", "1", "--all"},
                                               {"erase", "21", "--yes"},
                                               {"export"},
                                               {"export", "a", "--slot", "0"},
                                               {"export", "a", "--slot", "21"},
                                               {"export", "a", "--slot", "x"},
                                               {"export", "a", "--slot", "1", "--first-free"},
                                               {"export", "a", "b", "--slot", "20"},
                                               {"convert", "a"},
                                               {"convert", "a", "b", "--to", "c"},
                                               {"convert", "a", "--to", ""},
                                               {"convert", "a", "--to", "-", "--json"},
                                               {"backup"},
                                               {"backup", ""},
                                               {"backup", "a", "b"},
                                               {"restore", "--yes"},
                                               {"list", "3"},
                                               {"list", "--colour"},
                                               {"list", "--wait", "-1"},
                                               {"list", "--wait", "nan"},
                                               {"list", "--wait", "1e99"},
                                               {"list", "--patience", "soon"},
                                               {"list", "--record", ""},
                                               {"list", "--fault", "stall@in"},
                                               {"--simulate=", "list"},
                                               {"import", "1"},
                                               {"import", "--to", "x"},
                                               {"import", "--to", "", "1"},
                                               {"import", "--to", "x", "1", "--all"},
                                               {"import", "--to", "x", "0"},
                                               {"import", "--to", "x", "21"},
                                               {"import", "--to", "x", "19-21"},
                                               {"import", "--to", "x", "0-3"},
                                               {"import", "--to", "x", "5-3"},
                                               {"import", "--to", "x", "3-"},
                                               {"import", "--to", "x", "-3"},
                                               {"import", "--to", "x", "1,2"},
                                               {"import", "--to", "x", "1-2-3"},
                                               {"import", "--to", "x", "four"},
                                               {"import", "--to", "x", "4294967297"},
                                               {"import", "--to", "x", "99999999999999999999"}}) {
        const auto parsed = parseOptions(words);
        EXPECT_FALSE(parsed.options) << testing::PrintToString(words);
        EXPECT_EQ(parsed.code, ExitCode::usage) << testing::PrintToString(words);
        EXPECT_FALSE(parsed.text.empty() || parsed.text.find('\n') != std::string::npos) << parsed.text;
    }
}

TEST(Options, MistakesAreNamedWithWhatWasMeant) {
    const auto sentence = [](std::vector<std::string> words) { return parseOptions(std::move(words)).text; };
    EXPECT_THAT(sentence({"lst", "3"}), HasSubstr("There is no command \"lst\". Did you mean list?"));
    EXPECT_THAT(sentence({"--json", "improt"}), HasSubstr("Did you mean import?"));
    EXPECT_THAT(sentence({"help", "resto"}), HasSubstr("Did you mean restore?"));
    EXPECT_THAT(sentence({"firmware", "instal"}), HasSubstr("Did you mean install?"));
    EXPECT_THAT(sentence({"frobnicate"}), testing::Not(HasSubstr("mean")));
    EXPECT_THAT(sentence({"list", "--jsn"}), HasSubstr("There is no option \"--jsn\". Did you mean --json?"));
    EXPECT_THAT(sentence({"erase", "1", "19-21"}),
                HasSubstr("There is no slot 21; slots are numbered 1 to 20."));
    EXPECT_THAT(sentence({"export", "a", "--slot", "21"}),
                HasSubstr("There is no slot 21; slots are numbered"));
    EXPECT_THAT(sentence({"list", "--wait"}), HasSubstr("--wait requires a value."));
    EXPECT_THAT(sentence({"convert", "a"}), HasSubstr("--to is missing."));
    EXPECT_TRUE(parseOptions({"--json", "lst"}).json);
    EXPECT_FALSE(parseOptions({"export", "--", "--json"}).json);
}

TEST(Options, HelpTellsTheExitCodes) {
    EXPECT_EQ(parseOptions({"help"}).text, parseOptions({"--help"}).text);
    EXPECT_EQ(parseOptions({"help", "firmware", "install"}).text,
              parseOptions({"firmware", "install", "--help"}).text);
    EXPECT_EQ(parseOptions({"-V"}).text, parseOptions({"--version"}).text);

    for (const auto& words : std::vector<std::vector<std::string>>{{"--help"}, {"import", "--help"}}) {
        const auto parsed = parseOptions(words);
        EXPECT_EQ(parsed.code, ExitCode::ok);
        EXPECT_THAT(parsed.text, HasSubstr("  130  cancelled"));
    }
    EXPECT_THAT(parseOptions({"--version"}).text,
                testing::MatchesRegex("kzq7306ctl [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

TEST(Format, LengthsAndSizes) {
    EXPECT_EQ(lengthText(0), "0:00.0");
    EXPECT_EQ(lengthText(44'099), "0:00.9");
    EXPECT_EQ(lengthText(capacityFrames), "24:00.0");
    EXPECT_EQ(lengthText(44'100ULL * 65 + 22'050), "1:05.5");
    EXPECT_EQ(lengthText(0xFFFFFFFF), "1623:11.5");
    EXPECT_EQ(minutesText(capacityFrames - 1), "23 min 59 s");
    EXPECT_EQ(sizeText(999), "999 B");
    EXPECT_EQ(sizeText(1'000), "1.0 kB");
    EXPECT_EQ(sizeText(381'024'000), "381.0 MB");
    // A loop table may claim more than the pedal can hold.
    EXPECT_EQ(freeFrames({{1, {.samples = 63'504'000}}, {2, {.samples = 0xFFFFFFFF}}}), 0U);
    EXPECT_EQ(printable(std::string("1.\x1b\0", 4)), "1.??");
}

TEST(ProgressMeter, SpeedIsThatOfTheLastSeconds) {
    const Executor::TimePoint start;
    ProgressMeter meter(100'000'000, start);
    EXPECT_EQ(meter.text(), "0 %");
    meter.update(2'000'000, start + 1s);
    EXPECT_EQ(meter.text(), "2 %, 2.0 MB/s, 0:49 left");
    for (unsigned second = 2; second <= 20; ++second) {
        meter.update(2'000'000 + (second - 1) * 500'000, start + std::chrono::seconds(second));
    }
    EXPECT_EQ(meter.text(), "11 %, 500.0 kB/s, 2:57 left");
    meter.update(100'000'064, start + 21s);
    EXPECT_THAT(meter.text(), testing::StartsWith("100 %"));
    EXPECT_EQ(ProgressMeter(0, start).text(), "100 %");
}

}  // namespace
}  // namespace kzq::ctl
