#include "updates/firmware_cache.h"

#include <gtest/gtest.h>

#include "platform/digest.h"
#include "tls_server.h"

using namespace kzq;
using namespace kzq::test;
using Strings = std::vector<std::string>;

namespace {

TEST(FirmwareCache, KeepsNoEntryThatIsOutOfItsRanges) {
    const TestFolder folder;
    const FirmwareCache cache(folder / "cache");
    ASSERT_TRUE(cache.prepare());
    const std::vector<std::uint8_t> image(1000, 'i');
    FirmwareEntry made{"image", MD5String(image).value(), image.size(), "1.06", {}};
    EXPECT_TRUE(cache.store(made, image));
    EXPECT_EQ(cache.cached(made), image);
    made.size = largestFirmware + 1;
    EXPECT_FALSE(isComplete(made));
    made.size = image.size();
    writeText(folder / "outside", std::string(1000, 'i'));
    for (const auto* name : {"../outside", "../escaped", "..", ".", "/outside", "", "a/b"}) {
        made.name = name;
        EXPECT_FALSE(cache.store(made, image) || cache.cached(made) || cache.isPlaceFor(made)) << name;
    }
    EXPECT_EQ(namesIn(folder.path()), (Strings{"cache", "outside"}));
    EXPECT_EQ(namesIn(cache.folder()), Strings{"image"});
}

}  // namespace
