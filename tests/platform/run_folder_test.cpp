#include "platform/run_folder.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>

#include "test_folder.h"

namespace kzq {
namespace {

namespace fs = std::filesystem;

class RunFolderTest : public ::testing::Test {
  public:
  protected:
    RunFolderTest() = default;

    /// A folder as a killed run leaves it: with a file, and a link to outside.
    void leaveOneBehind(const fs::path& linkTarget) const {
        const pid_t child = ::fork();
        if (child == 0) {
            RunFolder folder(parent_);
            const auto path = folder.path();
            if (path) {
                std::ofstream(*path / "copy.wav") << "audio";
                fs::create_directory_symlink(linkTarget, *path / "out");
            }
            ::_exit(path ? 0 : 1);
        }
        int status = -1;
        ASSERT_EQ(child, ::waitpid(child, &status, 0));
        ASSERT_EQ(0, status);
    }

    std::size_t foldersLeft() const {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(parent_), {}));
    }

    test::TestFolder parent_;
};

TEST_F(RunFolderTest, IsPrivateMadeOnDemandAndGoesWithItsContent) {
    RunFolder folder(parent_);
    EXPECT_EQ(0U, foldersLeft());
    const auto path = folder.path();
    ASSERT_TRUE(path);
    EXPECT_EQ(path, folder.path());
    EXPECT_EQ(parent_.path(), path->parent_path());
    EXPECT_EQ(fs::perms::owner_all, fs::status(*path).permissions());
    std::ofstream(*path / "copy.wav") << "audio";

    fs::remove_all(*path);
    const auto second = folder.path();
    ASSERT_TRUE(second) << "a folder that was cleaned away comes back";
    EXPECT_TRUE(fs::is_directory(*second));

    folder.remove();
    EXPECT_EQ(0U, foldersLeft());
    EXPECT_FALSE(folder.path()) << "a late worker must not bring the folder back";
    EXPECT_EQ(0U, foldersLeft());
    EXPECT_FALSE(RunFolder(parent_ / "missing").path());
}

TEST_F(RunFolderTest, SweepsWhatDeadRunsLeftAndNothingElse) {
    const fs::path elsewhere = parent_ / "elsewhere";
    fs::create_directory(elsewhere);
    std::ofstream(elsewhere / "keep") << "me";
    leaveOneBehind(elsewhere);
    leaveOneBehind(elsewhere);
    fs::create_directory(parent_ / "kzq7306-run-killed-before-its-lock");
    fs::create_directory_symlink(elsewhere, parent_ / "kzq7306-run-link");
    RunFolder living(parent_);
    const fs::path alive = living.path().value();
    std::size_t others = 0;
    if (::geteuid() == 0) {
        const fs::path foreign = parent_ / "kzq7306-run-foreign";
        fs::create_directory(foreign);
        ASSERT_EQ(0, ::chown(foreign.c_str(), 65534, 65534));
        others = 1;
    }
    ASSERT_EQ(6U + others, foldersLeft());

    RunFolder(parent_).sweep();
    EXPECT_TRUE(fs::exists(alive));
    EXPECT_TRUE(fs::exists(elsewhere / "keep"));
    EXPECT_TRUE(fs::is_symlink(parent_ / "kzq7306-run-link"));
    EXPECT_EQ(3U + others, foldersLeft()) << "the living, elsewhere, the link, other users'";
    RunFolder(parent_ / "missing").sweep();
}

// NOLINTEND(concurrency-mt-unsafe)

}  // namespace
}  // namespace kzq
