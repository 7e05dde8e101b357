#include <gtest/gtest.h>

#include "release/site.h"
#include "release/site_server.h"
#include "signer.h"
#include "test_folder.h"
#include "updates/maker.h"
#include "updates/qt_http_client.h"

using namespace kzq;
using namespace kzq::release;
using namespace kzq::test;

namespace {

struct ReleaseTest : testing::Test {
    ReleaseTest() {
        writeText(folder / "pedal.bin", image);
        writeText(folder / "app.deb", "package");
    }
    Result<FirmwareEntry> addFirmware(const std::string& version) const {
        return site.add(Site::Firmware{folder / "pedal.bin", version, {"One"}}, signer);
    }
    Result<FeedItem> addPackage(const std::optional<MakerKey>& key) const {
        FeedItem item;
        item.version = "0.2";
        item.notes = "<b>New</b>\r\n";
        return site.add(Site::Package{folder / "app.deb", item, Feed::staging}, key);
    }

    const std::string image = std::string(300'000, 'i') + "end";
    const TestFolder folder;
    const Site site{folder / "site", "maker.example"};
    const Signer signer;
};

TEST_F(ReleaseTest, ListsAreNotOverwrittenThatCannotBeWrittenLikeThis) {
    ASSERT_TRUE(addPackage(signer) && addPackage(signer));
    const auto file = site.fileAt(softwareFeedAddress(Feed::staging, "maker.example"));
    const auto edited = readText(file) + "<!-- mine -->\n";
    writeText(file, edited);
    EXPECT_FALSE(addPackage(signer));
    EXPECT_FALSE(site.sign(signer));
    EXPECT_EQ(readText(file), edited);

    const auto manifest = site.fileAt(firmwareManifestAddress("maker.example"));
    ASSERT_TRUE(addFirmware("1.05"));
    const auto list = readText(manifest);
    EXPECT_FALSE(site.sign(Signer()));
    EXPECT_EQ(readText(manifest), list) << "nothing is written if a feed cannot be";
    auto earlier = edited.substr(0, edited.find("<!--"));
    writeText(file, earlier.insert(earlier.find("</description>"), "\r\n "));  // as earlier versions wrote
    EXPECT_TRUE(site.sign(signer));
    const std::string tooLong(largestManifest + 1, ' ');
    writeText(manifest, tooLong);
    EXPECT_FALSE(addFirmware("1.05"));
    EXPECT_EQ(readText(manifest), tooLong);
    writeText(manifest, R"([{"name": 5}])");
    EXPECT_TRUE(addFirmware("1.05"));
}

TEST_F(ReleaseTest, ASecretKeyIsKeptFromOthersAndNeverReplaced) {
    ASSERT_TRUE(signer.save(folder / "key"));
    EXPECT_EQ(std::filesystem::status(folder / "key").permissions(), std::filesystem::perms(0600));
    EXPECT_FALSE(Signer().save(folder / "key"));
    EXPECT_EQ(MakerKey::load(folder / "key")->publicKey(), signer.key);
    EXPECT_EQ(updateKeyFrom(signer.publicText()), signer.key);
    EXPECT_FALSE(MakerKey::load(folder / "pedal.bin"));
}

TEST_F(ReleaseTest, TheServerGivesWhatIsInItsFolderAndNothingElse) {
    ASSERT_TRUE(addFirmware("1.06"));
    const auto certificates = Certificates::make("IP:127.0.0.1").value();
    const auto server = SiteServer::start({.folder = folder / "site", .certificates = certificates}).value();
    QtHttpClient client(certificates.authority);
    HttpRequest rest{
        makerAddress("/assets/7306/firmware/pedal.bin", server->host()), {1'000'000}, {}, nullptr, {}};
    rest.offset = image.size() - 3;
    const auto body = client.fetch(rest).body;
    EXPECT_EQ(std::string(body.begin(), body.end()), "end");
    for (const auto* path : {"/../pedal.bin", "/%2e%2e/pedal.bin", "/", "/assets"}) {
        EXPECT_EQ(client.fetch({makerAddress(path, server->host()), {1'000'000}, {}, nullptr, {}}).failure,
                  HttpFailure::refused)
            << path;
    }
}

}  // namespace
