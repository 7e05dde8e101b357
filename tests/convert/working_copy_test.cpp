#include <cstdlib>
#include <future>
#include <set>

#include "audio/convert.h"
#include "converting.h"
#include "platform/run_folder.h"

namespace kzq {
namespace {

namespace fs = std::filesystem;

class WorkingCopy : public Converting {};

TEST_F(WorkingCopy, RefusesPathsByTheirShapeAndConvertsEachCallAnew) {
    // The folder of this run goes where the test can see it.
    ::setenv("TMPDIR", shop_.results().c_str(), 1);  // NOLINT(concurrency-mt-unsafe): one thread yet
    const auto good = shop_.write("good.wav", wave(packed(noise(1'000, 24)), 2).value());
    fs::copy_file(good, shop_.at("bare"));
    fs::current_path(shop_.folder());
    const std::vector<std::pair<std::string, std::string>> refused{{"", "no such file"},
                                                                   {"good.wav", "no folder"},
                                                                   {shop_.at("missing.wav"), "no such file"},
                                                                   {shop_.at("bare"), "no extension"}};
    for (const auto& [path, reason] : refused) {
        logged_.clear();
        EXPECT_EQ(std::nullopt, Wave::convertAudioFile(path)) << path;
        EXPECT_THAT(logged_, ::testing::HasSubstr(path + ": not converted: "));
        EXPECT_THAT(logged_, ::testing::HasSubstr(reason));
    }
    EXPECT_EQ(0U, shop_.resultCount()) << "not even a folder was needed";

    std::vector<std::future<std::optional<std::string>>> calls;
    calls.reserve(8);
    for (int i = 0; i < 8; ++i) {
        calls.push_back(std::async(std::launch::async, [&] { return Wave::convertAudioFile(good); }));
    }
    std::set<std::string> outputs;
    for (auto& call : calls) {
        outputs.insert(call.get().value_or(""));
    }
    ASSERT_EQ(8U, outputs.size());
    const std::string folder = RunFolder::ofThisRun().path().value();
    const auto shape = ::testing::MatchesRegex(
        folder + "/[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}\\.wav");
    for (const auto& output : outputs) {
        EXPECT_THAT(output, shape);
        EXPECT_EQ(readFile(good), readFile(output));
    }
    fs::current_path("/");
    RunFolder::ofThisRun().remove();
    EXPECT_EQ(std::nullopt, Wave::convertAudioFile(good)) << "the program is quitting";
    ::unsetenv("TMPDIR");  // NOLINT(concurrency-mt-unsafe): one thread still
}

}  // namespace
}  // namespace kzq
