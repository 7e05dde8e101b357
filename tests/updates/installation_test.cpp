#include <gtest/gtest.h>

#include "tls_server.h"
#include "updates/app_image.h"
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
    const auto image = of(folder / "link", mount.string(), mount / "usr/bin/kzq7306");
    EXPECT_EQ(image.kind, PackageKind::appImage);
    EXPECT_EQ(image.appImage, std::filesystem::canonical(folder / "real"));
    EXPECT_EQ(of(folder / "gone", mount, mount / "x").kind, PackageKind::other);
    for (const auto& content : {std::string(), std::string("/"), mount.string() + "s"}) {
        EXPECT_EQ(of(folder / "real", content, mount / "x").kind, PackageKind::other)
            << "another program's AppImage, with its content in " << content;
    }
}

TEST(Installation, AnAppImageThatRunsUnpackedStartsOthersSo) {
    constexpr auto name = "APPIMAGE_EXTRACT_AND_RUN";
    // NOLINTBEGIN(concurrency-mt-unsafe): no other threads
    ::unsetenv(name);
    startOthersUnpackedAs("/tmp/.mount_loops/usr/bin/kzq7306");
    EXPECT_EQ(::getenv(name), nullptr);
    startOthersUnpackedAs("/tmp/appimage_extracted_5a/usr/bin/kzq7306");
    EXPECT_STREQ(::getenv(name), "1");
    ::unsetenv(name);
    // NOLINTEND(concurrency-mt-unsafe)
}

TEST(Installation, IsAPackageOnlyWhereOneHasRecordedTheProgram) {
    const TestFolder records;
    writeText(records / "kzq7306.list", "/.\n/usr/bin/kzq7306\n/usr/local/bin/kzq7306\n");
    writeText(records / "other.md5sums", "/usr/bin/built\n");
    for (const auto& [program, kind] : {std::pair("/usr/bin/kzq7306", PackageKind::debian),
                                        {"/usr/bin/built", PackageKind::other},
                                        {"/usr/local/bin/kzq7306", PackageKind::other},
                                        {"/home/me/kzq7306", PackageKind::other}}) {
        EXPECT_EQ(Installation::of(nullptr, nullptr, program, records.path()).kind, kind) << program;
    }
}

}  // namespace
