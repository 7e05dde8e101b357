#include <gtest/gtest.h>

#include "tls_server.h"
#include "updates/update_build.h"

using namespace kzq;
using namespace kzq::test;

namespace {

TEST(Installation, IsAnAppImageOnlyWhenItRunsFromTheImagesContent) {
    const TestFolder folder;
    writeText(folder / "real", "");
    std::filesystem::create_symlink(folder / "real", folder / "link");
    std::filesystem::create_directory(folder / "mount");
    const auto mount = folder / "mount";
    const auto of = [&](const std::filesystem::path& image, const std::string& content,
                        const std::filesystem::path& executable) {
        return Installation::of(image.c_str(), content.c_str(), executable, folder / "none");
    };
    for (const auto* end : {"", "/"}) {
        const auto image = of(folder / "link", mount.string() + end, mount / "usr/bin/kzq7306");
        EXPECT_EQ(image.kind, PackageKind::appImage);
        EXPECT_EQ(image.appImage, std::filesystem::canonical(folder / "real"));
    }
    EXPECT_EQ(of(folder / "gone", mount, mount / "x").kind, PackageKind::other);
    EXPECT_EQ(of(folder.path(), mount, mount / "x").kind, PackageKind::other);
    for (const auto& content : {std::string(), std::string("/"), std::string("."), mount.string() + "s",
                                mount.string().substr(0, mount.string().size() - 1)}) {
        EXPECT_EQ(of(folder / "real", content, mount / "x").kind, PackageKind::other)
            << "another program's AppImage, with its content in " << content;
    }
    EXPECT_EQ(Installation::of((folder / "real").c_str(), nullptr, mount / "x", "").kind, PackageKind::other);
}

TEST(Installation, IsAPackageWhenDpkgHasTheProgramOnRecord) {
    const TestFolder folder;
    writeText(folder / "some.list", "/.\n/usr/bin\n/usr/bin/y\n");
    writeText(folder / "loops.list", "/.\n/usr\n/usr/bin/x\n/opt/kzq/x\n/usr/local/bin/x\n/home/me/x\n");
    writeText(folder / "loops.md5sums", "/usr/bin/z\n");
    const auto kindOf = [&](const char* executable) {
        return Installation::of("/foreign.AppImage", "/tmp/.mount_foreign", executable, folder.path()).kind;
    };
    EXPECT_EQ(kindOf("/usr/bin/x"), PackageKind::debian);
    EXPECT_EQ(kindOf("/opt/kzq/x"), PackageKind::debian);
    for (const auto* other : {"/usr/bin/z", "/usr/bin/xx", "/usr/local/bin/x", "/home/me/x"}) {
        EXPECT_EQ(kindOf(other), PackageKind::other) << other;
    }
}

}  // namespace
