#include "platform/new_file.h"

#include <gmock/gmock.h>

#include <set>
#include <thread>

#include "test_folder.h"

namespace kzq {
namespace {

using ::testing::UnorderedElementsAre;

std::vector<std::uint8_t> bytesOf(std::string_view text) {
    return {text.begin(), text.end()};
}

/// A temporary folder for the test.
class NewFileTest : public ::testing::TestWithParam<Draft::Road> {
  public:
  protected:
    NewFileTest() = default;

    std::vector<std::string> names() const { return test::namesIn(folder_); }
    std::string contents(const std::string& name) const { return test::readText(folder_ / name); }

    test::TestFolder folder_;
};

TEST_P(NewFileTest, TakesTheFirstFreeNameAndLeavesOthersAlone) {
    for (const char* text : {"one", "two", "three"}) {
        ASSERT_TRUE(writeNewFile(folder_, "Loop 4", ".wav", bytesOf(text), GetParam()));
    }
    EXPECT_THAT(names(), UnorderedElementsAre("Loop 4.wav", "Loop 4-2.wav", "Loop 4-3.wav"));
    EXPECT_EQ(contents("Loop 4.wav"), "one");
    EXPECT_EQ(contents("Loop 4-3.wav"), "three");

    // A name used by something other than a file, or by a dangling link, is also taken.
    std::filesystem::create_directory(folder_ / "Loop 5.wav");
    std::filesystem::create_symlink(folder_ / "nowhere", folder_ / "Loop 5-2.wav");
    EXPECT_EQ(writeNewFile(folder_, "Loop 5", ".wav", bytesOf("x"), GetParam()), folder_ / "Loop 5-3.wav");
    EXPECT_FALSE(std::filesystem::exists(folder_ / "nowhere"));
}

TEST_P(NewFileTest, ManyWritersOfOneNameEachGetTheirOwnFile) {
    constexpr unsigned writers = 4;
    constexpr unsigned each = 12;
    std::vector<std::thread> threads;
    std::array<std::set<std::filesystem::path>, writers> paths;
    for (unsigned writer = 0; writer < writers; ++writer) {
        threads.emplace_back([&, writer] {
            for (unsigned i = 0; i < each; ++i) {
                const auto text = std::to_string(writer) + ":" + std::to_string(i);
                const auto file = writeNewFile(folder_, "Loop 1", ".wav", bytesOf(text), GetParam());
                if (file && contents(file->filename()) == text) {
                    paths.at(writer).insert(*file);
                }
            }
        });
    }
    for (auto& thread : threads) {
        thread.join();
    }
    std::set<std::filesystem::path> all;
    for (const auto& own : paths) {
        all.insert(own.begin(), own.end());
    }
    EXPECT_EQ(all.size(), writers * each);
    EXPECT_EQ(names().size(), writers * each);
}

INSTANTIATE_TEST_SUITE_P(everyRoad, NewFileTest,
                         ::testing::Values(Draft::Road::unnamed, Draft::Road::renameNoReplace,
                                           Draft::Road::link, Draft::Road::reserve));

TEST(FileNameComponent, StaysInsideTheFolderAndFits) {
    EXPECT_EQ(fileNameComponent("a/b", 4), "a-b");
    EXPECT_EQ(fileNameComponent(std::string_view("a\0b", 3), 4), "a-b");
    EXPECT_EQ(fileNameComponent("..", 4), "-..");
    EXPECT_EQ(fileNameComponent(".", 4), "-.");
    EXPECT_EQ(fileNameComponent("../x", 4), "..-x");
    EXPECT_EQ(fileNameComponent("", 4), "-");
    EXPECT_EQ(fileNameComponent(std::string(251, 'x'), 4).size(), 251U);
    EXPECT_EQ(fileNameComponent(std::string(252, 'x'), 4).size(), 251U);
    EXPECT_EQ(fileNameComponent(std::string(300, '\x80'), 4).size(), 248U) << "no name would be left";
    // 125 characters of two bytes: the one that would be cut in half goes.
    std::string umlauts;
    for (int i = 0; i < 126; ++i) {
        umlauts += "ä";
    }
    EXPECT_EQ(fileNameComponent(umlauts, 4).size(), 250U);
}

}  // namespace
}  // namespace kzq
