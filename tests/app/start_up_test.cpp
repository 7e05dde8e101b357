#include "app/start_up.h"

#include <gmock/gmock.h>

#include <fstream>
#include <vector>

#include "test_folder.h"

namespace kzq::test {

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

/// A home folder, and a program in a bundle that still has its build name.
class StartUp : public testing::Test {
  protected:
    StartUp() {
        fs::create_directories(program().parent_path());
        fs::create_directory(home);
        std::ofstream(program()) << "a program";
    }

    fs::path program() const { return built / "bin" / "kzq7306"; }
    bool handOver(const fs::path& running, bool opens = true) {
        return handOverToRenamedBundle({home, running, [this, opens](const fs::path& bundle) {
                                            opened.push_back(bundle);
                                            return opens;
                                        }});
    }

    const TestFolder base;
    const fs::path home = base / "home";
    const fs::path built = base / "KZQ7306.app";
    const fs::path known = base / "7306 Loop Manager.app";
    std::vector<fs::path> opened;
};

TEST_F(StartUp, ABundleWithItsBuiltNameIsRenamedAndOpenedUnlessTheMarkerSaysNo) {
    writeBundleNameMarker(home);
    EXPECT_FALSE(handOver(program()));
    EXPECT_FALSE(fs::exists(bundleNameMarker(home)));  // used up
    EXPECT_TRUE(fs::exists(program()));
    EXPECT_THAT(opened, IsEmpty());
    EXPECT_TRUE(handOver(program()));
    EXPECT_THAT(opened, ElementsAre(known));
    EXPECT_TRUE(fs::exists(known / "bin" / "kzq7306"));
    EXPECT_FALSE(fs::exists(built));
    EXPECT_FALSE(handOver(known / "bin" / "kzq7306"));
    EXPECT_EQ(opened.size(), 1U);
}

TEST_F(StartUp, ARenamingReplacesNothingAndEndsTheProgramEvenWithoutAnOpener) {
    fs::create_directory(known);  // also not an empty folder
    EXPECT_FALSE(handOver(program()));
    EXPECT_TRUE(fs::exists(program()) && fs::is_empty(known));
    fs::remove(known);
    EXPECT_TRUE(handOver(program(), false));
    EXPECT_EQ(opened.size(), 1U);
}

}  // namespace

}  // namespace kzq::test
