#include "dormant/updates.h"

#include <gtest/gtest.h>

#include "dormant/property_list.h"
#include "tls_server.h"
#include "updates/maker.h"
#include "virtual_executor.h"

using namespace kzq;
using namespace kzq::test;

namespace {

/// The tests run in a folder of their own, since the cache folders belong to the current one.
struct UpdatesTest : testing::Test {
    UpdatesTest() {
        std::filesystem::current_path(folder.path());
        Updates::load({executor, [this] { return firmware; }, "0.1.0"});
    }
    ~UpdatesTest() override {
        Updates::unload();
        std::filesystem::current_path(before);
    }

    void hold(UpdateKind kind, const std::string& content) const {
        const auto cache = folder.path() / Updates::cacheFolder(kind).value();
        std::filesystem::create_directories(cache);
        writeText(cache / "manifest.plist", content);
    }

    const std::filesystem::path before = std::filesystem::current_path();
    TestFolder folder;
    VirtualExecutor executor;
    std::optional<std::string> firmware = "1.05";
};

std::string list(const std::string& elements) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE plist PUBLIC \"-//X//DTD PLIST 1.0//EN\" "
           "\"http://localhost/x.dtd\">\n<plist version=\"1.0\"><array>" +
           elements + "</array></plist>";
}

std::string held(const std::string& version, const std::string& checksum) {
    return "<dict><key>version</key><string>" + version + "</string><key>checksum</key><string>" + checksum +
           "</string></dict>";
}

TEST_F(UpdatesTest, TellsTheLastCompleteElement) {
    const auto updates = Updates::updates();
    hold(UpdateKind::firmware, list(held("1.07", "a") + held("1.06", "b")));
    EXPECT_EQ(updates->latestCachedFirmware(), "1.06") << "the last, not the highest";
    EXPECT_EQ(updates->latestCachedSoftware(), "0.1.0") << "of the other kind";
    EXPECT_TRUE(std::filesystem::exists("~/Library")) << "a folder whose name is a tilde";
    hold(UpdateKind::software, list(held("0.2", "c")));
    EXPECT_EQ(updates->latestCachedSoftware(), "0.2");

    const auto good = list(held("1.07", "a"));
    hold(UpdateKind::firmware, list(held("1.07", "a") + held("", "x")));
    EXPECT_EQ(updates->latestCachedFirmware(), std::nullopt);
    for (const auto& broken : {std::string(), good.substr(0, good.size() - 3),
                               list("<!DOCTYPE p [<!ENTITY a \"b\">]>" + held("1.07", "a"))}) {
        hold(UpdateKind::firmware, broken);
        EXPECT_EQ(updates->latestCachedFirmware(), "1.05") << broken.substr(0, 100);
    }
}

TEST_F(UpdatesTest, KnowsTheMakersAddresses) {
    EXPECT_EQ(firmwareManifestAddress(), makerAddress("/assets/7306/firmware/_.json"));
    EXPECT_EQ(softwareFeedAddress(folder.path()), makerAddress("/assets/7306/software/mac/_.xml"));
    std::filesystem::create_directories(folder / "Desktop/com.kzq.7306.staging");
    EXPECT_EQ(softwareFeedAddress(""), makerAddress("/assets/7306/software/mac/_.xml"))
        << "without a home the current folder is none";
    EXPECT_EQ(softwareFeedAddress(folder.path()), makerAddress("/assets/7306/staging/software/mac/_.xml"));
    EXPECT_TRUE(makerAddress("/x").starts_with("https://"));
    EXPECT_EQ(addressBeside("https://h/a/_.json", "b c?#%/ü.bin"), "https://h/a/b%20c%3F%23%25%2F%C3%BC.bin");
}

}  // namespace
