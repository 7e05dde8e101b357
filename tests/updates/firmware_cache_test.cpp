#include "updates/firmware_cache.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>

#include "platform/descriptor.h"
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

TEST(FirmwareCache, IsClearedOfWhatAKilledRunLeft) {
    const TestFolder folder;
    for (const auto* name : {".kzq7306-1-old.part", ".kzq7306-1-old", "old.part"}) {
        writeText(folder / name, "x");
    }
    writeText(folder / ".kzq7306-1-written.part", "x");
    const Descriptor written(::open((folder / ".kzq7306-1-written.part").c_str(), O_WRONLY));
    ASSERT_EQ(::flock(written.get(), LOCK_EX), 0) << "as a draft that another program is writing";
    std::filesystem::create_directory(folder / ".kzq7306-1-folder.part");
    EXPECT_TRUE(FirmwareCache(folder.path()).prepare());
    EXPECT_EQ(namesIn(folder.path()),
              (Strings{".kzq7306-1-folder.part", ".kzq7306-1-old", ".kzq7306-1-written.part", "old.part"}));
}

}  // namespace
