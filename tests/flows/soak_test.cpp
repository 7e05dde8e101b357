#include <malloc.h>

#include <cstdlib>
#include <iostream>
#include <iterator>

#include "flow_fixture.h"

namespace kzq::test {

namespace {

namespace fs = std::filesystem;

std::ptrdiff_t entriesOf(const char* folder) {
    return std::distance(fs::directory_iterator(folder), {});
}

/// What this process holds.
struct Figures {
    std::size_t bytes = ::mallinfo2().uordblks + ::mallinfo2().hblkhd;  ///< 0 under a sanitizer
    std::ptrdiff_t descriptors = entriesOf("/proc/self/fd");
    std::ptrdiff_t threads = entriesOf("/proc/self/task");
};

std::ostream& operator<<(std::ostream& out, const Figures& figures) {
    std::ifstream statm("/proc/self/statm");
    std::size_t pages = 0;
    statm >> pages >> pages;
    return out << figures.bytes / 1024 << " KiB in use, " << pages * 4 << " KiB resident, "
               << figures.descriptors << " descriptors, " << figures.threads << " threads";
}

class Soak : public FlowTest {
  protected:
    void press(QAbstractButton& button) {
        button.click();
        EXPECT_TRUE(becomesIdle());
    }
    void loseAndFind(Executor::Duration away) {
        pedal.unplug();
        pass(away);
        plugIn();
        pass(6s);
        EXPECT_TRUE(importRow(1).occupied());
    }
    /// Polls, and a little of everything.
    void hour() {
        const auto end = executor.elapsed() + 1h;
        loseAndFind(5min);
        asleep += 8h;
        pedal.reset();
        pass(10min);
        select({1, 3});
        press(*window->importButton());
        stage(5, 300);
        press(*window->exportButton());
        select({5});
        press(*window->eraseButton());
        delegate->playClickedForSlot(importRow(3));
        pass(1s);
        output.take(5000);
        delegate->playClickedForSlot(importRow(3));
        plan("unplug@in:3");
        select({1});
        press(*window->importButton());
        loseAndFind(1min);
        pass(end - executor.elapsed());
        forget();
    }

  private:
    /// What only the test keeps.
    void forget() {
        EXPECT_EQ(files().size(), 2U);
        for (const auto* const name : {"imports", "copies", "files"}) {
            fs::remove_all(base / name);
            fs::create_directory(base / name);
        }
        logged = {};
        dialogs.shown = {};
        web.requested = {};
        output.heard = {};
        pedal.clearJournal();
    }
};

/// `SOAK=24 build/dev/tests/flows/test_flows --gtest_filter=Soak.*` soaks for a day.
TEST_F(Soak, NothingGrowsAfterTheFirstHour) {
    const char* const hours = std::getenv("SOAK");  // NOLINT(concurrency-mt-unsafe): nobody writes it
    launchConnected();
    hour();
    const Figures first;
    for (int i = 1; i < (hours == nullptr ? 3 : std::atoi(hours)); ++i) {
        hour();
        if (hours != nullptr) {
            std::cout << "after " << i + 1 << " hours: " << Figures() << std::endl;
        }
    }
    const Figures last;
    EXPECT_LE(last.bytes, first.bytes + 32 * 1024);
    EXPECT_EQ(last.descriptors, first.descriptors);
    EXPECT_EQ(last.threads, first.threads);
}

}  // namespace

}  // namespace kzq::test
