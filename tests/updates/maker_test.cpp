#include "updates/maker.h"

#include <gtest/gtest.h>

#include "test_folder.h"

using namespace kzq;
using namespace kzq::test;

namespace {

TEST(Maker, KnowsTheMakersAddresses) {
    const TestFolder folder;
    EXPECT_EQ(firmwareManifestAddress(), makerAddress("/assets/7306/firmware/_.json"));
    EXPECT_EQ(softwareFeedAddress(folder.path()), makerAddress("/assets/7306/software/mac/_.xml"));
    std::filesystem::create_directories(folder / "Desktop/com.kzq.7306.staging");
    EXPECT_EQ(softwareFeedAddress(folder.path()), makerAddress("/assets/7306/staging/software/mac/_.xml"));
    EXPECT_TRUE(makerAddress("/x").starts_with("https://"));
    EXPECT_EQ(addressBeside("https://h/a/_.json", "b c?#%/ü.bin"), "https://h/a/b%20c%3F%23%25%2F%C3%BC.bin");
}

}  // namespace
