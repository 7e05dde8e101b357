#include "troubleshooting/root_shell.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "test_folder.h"

namespace kzq {
namespace {

TEST(RootShell, IsTheOneOfAStandInForPkexec) {
    const test::TestFolder folder;
    const auto pkexec = folder / "pkexec";
    const RootPlaces places{"relative::" + (folder / "none").string() + ":" + folder.path().string(), false};
    EXPECT_FALSE(rootShell(places)) << "none is there";
    std::ofstream(pkexec) << "#!/bin/sh\necho \"$1\" >>'" + folder.path().string() + "/ran'\nexec \"$@\"\n";
    EXPECT_FALSE(rootShell(places)) << "it is no program";
    std::filesystem::permissions(pkexec, std::filesystem::perms::owner_all);
    const auto shell = rootShell(places);
    ASSERT_TRUE(shell);
    const auto made = folder / "two words";
    EXPECT_TRUE(shell("true && echo done > '" + made.string() + "'"));
    EXPECT_TRUE(std::filesystem::exists(made));
    EXPECT_TRUE(shell("/bin/test -e /"));
    std::ifstream ran(folder / "ran");
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(ran), {}), "/bin/sh\n/bin/test\n")
        << "what polkit has words for is not hidden in a shell";
    EXPECT_EQ(shell("exit 126").error().words, "no password was given");
    EXPECT_EQ(shell("exit 3").error().words, "the commands ended with status 3");
}

TEST(SetUp, RunsEachCommandWithoutSudoUnlessAFileIsNotWhereItShouldBe) {
    using Kind = Trouble::Kind;
    const Trouble shipped{.kind = Kind::roadNotInstalled,
                          .remedy =
                              "sudo install -m 644 '/my && sudo x/a.rules' /etc/ && echo 'A' | sudo tee "
                              "/etc/b.rules && sudo two"};
    EXPECT_EQ(setUpCommands(shipped),
              "install -m 644 '/my && sudo x/a.rules' /etc/ && echo 'A' | tee /etc/b.rules && two");
    EXPECT_THAT(setUpFiles(shipped),
                testing::ElementsAre("a.rules goes into /etc.", "b.rules goes into /etc."));
    const Trouble installed{.kind = Kind::ruleMissing, .remedy = "sudo /usr/libexec/kzq7306-setup install"};
    EXPECT_EQ(setUpCommands(installed), "/usr/libexec/kzq7306-setup install");
    EXPECT_THAT(setUpFiles(installed), testing::ElementsAre("70-kzq7306.rules goes into /etc/udev/rules.d.",
                                                            "kzq7306-usbtmc goes into /usr/lib/udev."));
    EXPECT_EQ(setUpCommands({.kind = Kind::ruleMissing, .remedy = "sudo install -m 644 a.rules /etc/"}), "");
}

}  // namespace
}  // namespace kzq
