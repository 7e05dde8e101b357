// What only the window does to files, to be killed: see crash_test.py. CRASH_BELOW is the folder.
#include <cstdlib>

#include "../operations/operation_fixture.h"
#include "fake_web.h"
#include "operations/keep.h"
#include "signer.h"
#include "updates/self_check.h"
#include "updates/update_job.h"

namespace kzq::test {
namespace {

std::filesystem::path place() {
    return std::getenv("CRASH_BELOW");  // NOLINT(concurrency-mt-unsafe)
}

class Steps : public OperationTest {};

/// Where there is room for one copy.
TEST_F(Steps, Keep) {
    const KeepOrder order{
        .copies = KeptCopies(place() / "share", 10), .slots = {1_slot, 3_slot, 10_slot}, .seen = table()};
    const auto made = run([&] { return runKeep(*work, order, {}); });
    EXPECT_TRUE(made.outcome.whole());
    order.copies.noteGone(made.stamp, order.slots);
    order.copies.tidy();
}

TEST(Update, Install) {
    const Signer signer;
    std::string package(300'000, 'x');
    package.replace(0, 11,
                    "\x7F"
                    "ELF"
                    "1234"
                    "AI\x02");
    FakeWeb web;
    web.bodies = {{"loops.AppImage", package}};
    auto item = itemFor(package, "2.0", "https://maker/loops.AppImage");
    signer.sign(item);
    const auto image = place() / "apps/loops.AppImage";
    const UpdateJob job{.item = item,
                        .keys = {signer.key},
                        .installation = {PackageKind::appImage, image},
                        .place = image,
                        .run = std::make_shared<UpdateRun>(),
                        .post = [] {},
                        .selfCheck = [](const auto&) { return Result<std::string>(selfCheckLine("2.0")); }};
    EXPECT_EQ(perform(job, web).english, "");
}

}  // namespace
}  // namespace kzq::test
