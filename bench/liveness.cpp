// The whole application on the real clock: whether the window stays responsive while a full pedal is read.

#include <cstdlib>
#include <iterator>

#include "loops/facts.h"
#include "running_application.h"
#include "ui/fonts.h"

namespace kzq::test {

namespace {

namespace fs = std::filesystem;

constexpr Milliseconds longestSlip = 50ms;
constexpr Milliseconds longestCancel = 500ms;
constexpr std::size_t parts = 8;  // of the pedal's memory: one long loop of four, and four loops
constexpr auto part = capacityFrames / parts * frameBytes;

simulator::PedalMemory fullMemory() {
    simulator::PedalMemory memory;
    memory[0] = simulator::StoredLoop{Bytes(part * 4, 1)};
    for (const std::size_t address : {1U, 6U, 11U, 19U}) {
        memory.at(address) = simulator::StoredLoop{Bytes(part, 2)};
    }
    return memory;
}

std::uint64_t bytesIn(const fs::path& folder) {
    std::uint64_t bytes = 0;
    for (const auto& file : fs::directory_iterator(folder)) {
        bytes += file.file_size();
    }
    return bytes;
}

TEST(Liveness, TheWindowStaysAliveWhile24MinutesAreImported) {
    auto& application =
        *new RunningApplication(fullMemory());  // NOLINT(cppcoreguidelines-owning-memory): see there
    ASSERT_TRUE(application.ready());
    Milliseconds machine;
    {
        BareTimer bare;
        WindowTimer timer;
        until([] { return false; }, 500ms);
        report("slip without an import", timer.stop());
        report("slip of a bare thread", machine = bare.stop());
    }
    {
        BareTimer bare;
        WindowTimer timer;
        const auto start = Clock::now();
        application.startImport();
        ASSERT_TRUE(until([&] { return application.busy(); }, 5s));
        ASSERT_TRUE(until([&] { return !application.busy(); }, 100s));
        const auto slip = timer.stop();
        const auto meanwhile = bare.stop();
        report("import of 24 minutes", Clock::now() - start);
        report("slip meanwhile", slip);
        report("slip of a bare thread meanwhile", meanwhile);
        EXPECT_LE(slip, longestSlip + std::max(machine, meanwhile));
        EXPECT_EQ(bytesIn(application.dialogs.folder), parts * part + 5 * waveHeaderSize);
    }
    application.startImport();
    const auto& progress = *application.delegate->progress();
    ASSERT_TRUE(until([&] { return progress.isVisible() && progress.percent() > 0.05; }, 20s));
    auto* const cancel = application.delegate->progress()->window().findChild<QAbstractButton*>();
    ASSERT_NE(cancel, nullptr);
    BareTimer bare;
    const auto start = Clock::now();
    cancel->click();
    ASSERT_TRUE(
        until([&] { return !application.busy() && KZQ7306::looper()->operation() == KZQ7306::idle; }, 20s));
    const Milliseconds took = Clock::now() - start;
    report("cancel", took);
    EXPECT_LE(took, longestCancel + bare.stop());
    EXPECT_LT(bytesIn(application.dialogs.folder), parts * part);
    fs::remove_all(application.base);
}

}  // namespace

}  // namespace kzq::test

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const kzq::Application application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    kzq::registerFonts();
    std::_Exit(RUN_ALL_TESTS());
}
