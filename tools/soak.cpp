// The whole application, one simulated hour after another: see tools/soak.

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>

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

/// The list of what was said is full after some hours.
TEST_F(Soak, NothingGrowsOnceAllIsThere) {
    const char* const text = std::getenv("HOURS");  // NOLINT(concurrency-mt-unsafe): nobody writes it
    constexpr std::size_t warm = 8;
    const std::size_t hours = std::max(warm, text == nullptr ? 24 : std::strtoul(text, nullptr, 10));
    std::optional<Figures> first;
    launchConnected();
    for (std::size_t i = 1; i <= hours; ++i) {
        hour();
        const Figures now;
        std::cout << "after " << i << " hours: " << now << std::endl;
        first = i <= warm ? now : first;
        EXPECT_LE(now.bytes, first->bytes + (8 + i - std::min(i, warm)) * 1024)
            << "the toolkit keeps 176 an hour";
        EXPECT_EQ(now.descriptors, first->descriptors);
        EXPECT_EQ(now.threads, first->threads);
    }
}

}  // namespace

}  // namespace kzq::test
