#include "operations/kept_copies.h"

#include "operation_fixture.h"
#include "operations/keep.h"
#include "operations/snapshot_draft.h"

namespace kzq::test {
namespace {

namespace fs = std::filesystem;

class KeptCopiesTest : public OperationTest {
  protected:
    /// Before an operation that is seen to succeed with `gone`; by default, with all of them.
    Outcome keep(const std::vector<SlotNumber>& slots, Deed before = Deed::erase,
                 const std::optional<std::vector<SlotNumber>>& gone = {}) {
        hold({});
        const KeepOrder order{.copies = copies,
                              .slots = slots,
                              .seen = table(),
                              .before = before,
                              .stamp = [this] { return stamp; },
                              .freeSpace = [](const auto&) { return std::nullopt; }};
        auto made = run([&] { return runKeep(*work, order, events()); });
        copies.noteGone(made.stamp, gone.value_or(slots));
        return std::move(made.outcome);
    }
    /// "3 erased 2026-11-22 14-02-31"
    std::vector<std::string> list() const {
        constexpr std::array fates = {" copied ", " erased ", " replaced "};
        std::vector<std::string> lines;
        for (const auto& copy : copies.list()) {
            lines.push_back(std::to_string(copy.slot.number()) +
                            fates.at(static_cast<std::size_t>(copy.fate)) + copy.stamp);
        }
        return lines;
    }

    std::string stamp = "2026-11-22 14-02-31";
    KeptCopies copies{folder / "share"};
    const fs::path kept = folder / "share/kept";
};

TEST_F(KeptCopiesTest, TheVeryAudioIsKeptOnceAndEachTimeIsListed) {
    EXPECT_TRUE(keep({3_slot, 10_slot}).whole());
    const auto size = copies.size();
    const auto first = copies.list().front();
    EXPECT_EQ(readText(first.file).size(), size - readText(copies.list().back().file).size());
    stamp = "2026-11-23 08-00-00";
    EXPECT_TRUE(keep({10_slot}, Deed::write).whole());
    pedal.setLoop(2, StoredLoop{noise(first.length.count, 77), 1, 255});
    EXPECT_TRUE(keep({3_slot}).whole()) << "another take of the same length";
    EXPECT_THAT(said, ElementsAre("3 saved"));
    EXPECT_TRUE(keep({3_slot, 10_slot}).whole()) << "the audio of two different copies";
    EXPECT_THAT(said, ElementsAre("3 kept", "10 kept"));
    EXPECT_THAT(list(), ElementsAre("3 erased 2026-11-23 08-00-00-03", "10 erased 2026-11-23 08-00-00-03",
                                    "3 erased 2026-11-23 08-00-00-02", "10 replaced 2026-11-23 08-00-00",
                                    "3 erased 2026-11-22 14-02-31", "10 erased 2026-11-22 14-02-31"));
    EXPECT_EQ(copies.size(), size + fs::file_size(first.file)) << "one more take of loop 3";
}

TEST_F(KeptCopiesTest, ACopySaysWhatWasSeenToHappenAndOnlyOnceThatNothingDid) {
    EXPECT_TRUE(keep({3_slot, 10_slot}, Deed::write, {{3_slot}}).whole());
    EXPECT_THAT(list(), ElementsAre("3 replaced " + stamp, "10 copied " + stamp));
    EXPECT_TRUE(keep({3_slot, 10_slot}, Deed::erase, {{}}).whole());
    const auto second = stamp + "-02";
    EXPECT_THAT(list(), ElementsAre("3 copied " + second, "10 copied " + second, "3 replaced " + stamp));
    EXPECT_TRUE(copies.turn(false));
    copies.noteGone(second, {10_slot});
    EXPECT_EQ(list()[1], "10 erased " + second);
}

TEST_F(KeptCopiesTest, TheOldestGoButNeitherTheNewestNorWhatIsNotOurs) {
    for (const auto* const day : {"01", "02", "03"}) {
        stamp = "2026-11-" + std::string(day) + " 12-00-00";
        EXPECT_TRUE(keep({*SlotNumber::of(static_cast<unsigned>(day[1] - '0') == 2 ? 10 : 3)}).whole());
        pedal.setLoop(2, StoredLoop{noise(1000, static_cast<std::uint32_t>(day[1])), 1, 255});
    }
    fs::copy(kept / "2026-11-01 12-00-00", kept / "before the tour");
    writeText(kept / "2026-11-01 12-00-00/mine.txt", "x");
    writeText(folder / "share/other.txt", "x");
    copies = KeptCopies(folder / "share", 10);
    copies.tidy();
    EXPECT_THAT(list(), ElementsAre("3 erased 2026-11-03 12-00-00")) << "larger than there is room";
    EXPECT_THAT(namesIn(kept), testing::UnorderedElementsAre("2026-11-03 12-00-00", "before the tour",
                                                             "unfinished 2026-11-01 12-00-00"));
    EXPECT_THAT(namesIn(kept / "unfinished 2026-11-01 12-00-00"), ElementsAre("mine.txt"));
    EXPECT_TRUE(fs::exists(folder / "share/other.txt"));
}

TEST_F(KeptCopiesTest, NoRunTouchesAnothers) {
    const auto all = copies.open().value();
    const auto killed = all.makeUnfinished(stamp).value();  // between a file and the index
    writeText(killed / "Loop 3.wav", "x");
    const auto other = SnapshotDraft::make(all, stamp).value();
    writeText(other->path() / "Loop 5.wav", "x");
    EXPECT_TRUE(keep({1_slot}).whole());
    EXPECT_THAT(list(), ElementsAre("1 erased " + stamp));
    EXPECT_THAT(namesIn(kept), testing::UnorderedElementsAre(stamp, other->path().filename().string()));
    EXPECT_TRUE(fs::exists(other->path() / "Loop 5.wav"));
}

TEST_F(KeptCopiesTest, TheFoldersNameIsTheSettingAndNothingIsRemoved) {
    EXPECT_TRUE(copies.on());
    EXPECT_FALSE(KeptCopies({}).on());
    EXPECT_TRUE(copies.turn(false));
    EXPECT_FALSE(copies.on());
    EXPECT_TRUE(copies.turn(true));
    EXPECT_TRUE(keep({3_slot}).whole());
    EXPECT_TRUE(copies.turn(false));
    EXPECT_THAT(namesIn(folder / "share"), ElementsAre("kept-off"));
    EXPECT_EQ(list().size(), 1U);
    fs::create_directory(kept);
    writeText(kept / "mine.txt", "x");
    EXPECT_TRUE(copies.on());
    EXPECT_EQ(copies.turn(false).error().kind, Trouble::Kind::folder) << "both are there";
}

}  // namespace
}  // namespace kzq::test
