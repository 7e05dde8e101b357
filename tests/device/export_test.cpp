#include <filesystem>
#include <fstream>

#include "pedal_fixture.h"

namespace kzq::test {
namespace {

class Export : public PedalTest {
  protected:
    Export() { std::filesystem::create_directories(folder); }
    ~Export() override { std::filesystem::remove_all(folder); }

    /// Stages `content` as the working copy for `slot`.
    void stage(std::uint8_t slot, const Bytes& content, bool occupied = false) {
        const auto path = folder / (std::to_string(slot) + ".wav");
        std::ofstream(path, std::ios::binary)
            .write(reinterpret_cast<const char*>(content.data()),
                   static_cast<std::streamsize>(content.size()));
        exports.insert_or_assign(*SlotNumber::of(slot),
                                 ExportInfo{path, slot, occupied, content.size() - 44});
    }
    void stageFrames(std::uint8_t slot, std::size_t frames, bool occupied = false) {
        stage(slot, *wave(noise(frames, slot), 2), occupied);
    }

    bool exportLoops() {
        return looper().exportLoops(
            exports,
            [this](std::uint32_t total, std::uint8_t index) {
                EXPECT_FALSE(executor.onMainThread());
                EXPECT_EQ(looper().operation(), KZQ7306::exporting);
                progress.emplace_back(total, index);
                if (total >= cancelAt) {
                    looper().cancelTransfer();
                }
            },
            [this](std::uint32_t bytes, std::uint8_t slot) { results.emplace_back(slot, bytes); },
            [this](std::uint8_t count) {
                EXPECT_EQ(looper().operation(), KZQ7306::idle);
                counts.push_back(count);
            });
    }

    using Pairs = std::vector<std::pair<std::uint32_t, std::uint32_t>>;

    std::filesystem::path folder =
        std::filesystem::path(testing::TempDir()) / ("export" + std::to_string(getpid()));
    Exports exports;
    Pairs progress;
    Pairs results;
    std::vector<std::uint8_t> counts;
};

TEST_F(Export, SendsLoopsInAscendingOrderWithTheirOddNumbering) {
    stageFrames(12, 11667);  // 70,002 bytes
    stageFrames(3, 1, true);
    stageFrames(7, 171);
    ASSERT_TRUE(exportLoops());
    executor.settle();
    const auto sent = actions();
    EXPECT_THAT(std::vector(sent.begin(), sent.begin() + 9),
                ElementsAre("E2 2 1", "E3 6 0", "out 6", "E2 6 0", "E3 1026 0", "out 1024", "out 2",
                            "E2 11 0", "E3 4466 1"));
    EXPECT_EQ(sent.size(), 9U + 69U);
    EXPECT_EQ(sent.back(), "out 370");
    // Progress reports 0 to 19 and the batch's total, results 1 to 20 and the loop's own bytes.
    EXPECT_EQ(Pairs(progress.begin(), progress.begin() + 3), (Pairs{{6, 2}, {1030, 6}, {1032, 6}}));
    EXPECT_EQ(progress.back(), (std::pair{71034U, 11U}));
    EXPECT_EQ(results, (Pairs{{3, 6}, {7, 1026}, {12, 70002}}));
    EXPECT_THAT(counts, ElementsAre(3));
    for (const auto& [slot, frames] : {std::pair{3U, 1U}, std::pair{7U, 171U}, std::pair{12U, 11667U}}) {
        EXPECT_EQ(pedal.memory().at(slot - 1)->audio, noise(frames, slot));
    }
}

TEST_F(Export, AWorkingCopyThatIsNoFileOrLongerThanAnyLoopIsNotSent) {
    exports.emplace(2_slot, ExportInfo{folder, 2, false, 6});
    stage(4, {1});
    std::filesystem::resize_file(exports.at(4_slot).source,
                                 63'504'000ULL * 6 + 45);  // one byte more than a full pedal
    exports.emplace(5_slot, ExportInfo{"/dev/zero", 5, false, 6});
    stageFrames(6, 1);
    stage(7, Bytes{1, 2, 3, 4, 5, 6});  // not a wave: is sent unchanged
    exportLoops();
    executor.settle();
    EXPECT_EQ(results, (Pairs{{2, 0}, {4, 0}, {5, 0}, {6, 6}, {7, 6}}));
    EXPECT_THAT(actions(), ElementsAre("E2 5 0", "E3 6 0", "out 6", "E2 6 0", "E3 6 0", "out 6"));
    EXPECT_EQ(pedal.memory()[6]->audio, (Bytes{1, 2, 3, 4, 5, 6}));
}

TEST_F(Export, CancelStopsBeforeTheNextPieceResetsAndAbandons) {
    stageFrames(2, 1);
    stageFrames(3, 1000, true);
    stageFrames(4, 1);
    cancelAt = 6 + 2048;
    exportLoops();
    executor.settle();
    EXPECT_EQ(results, (Pairs{{2, 6}, {3, 0}}));
    EXPECT_THAT(counts, ElementsAre(1));
    EXPECT_THAT(actions(), ElementsAre("E2 1 0", "E3 6 0", "out 6", "E2 2 1", "E3 6000 0", "out 1024",
                                       "out 1024", "reset", "EF 1 0"));
}

class Erase : public PedalTest {
  protected:
    bool eraseLoops(std::vector<std::uint8_t> slots) {
        return looper().eraseLoops(std::move(slots), [this](std::uint8_t count) {
            operations.push_back(looper().operation());
            counts.push_back(count);
        });
    }

    std::vector<std::int32_t> operations;
    std::vector<std::uint8_t> counts;
};

TEST_F(Erase, EmptiesSlotsWithAPauseAfterEachAndIsIdleOnlyAfterItsCompletion) {
    ASSERT_TRUE(eraseLoops({11, 0, 1, 21, 3}));
    bool idle = false;
    executor.background(Priority::high, [&idle] {
        looper().waitUntilIdle();
        idle = true;
    });
    executor.advance(74ms);
    EXPECT_THAT(counts, IsEmpty());
    EXPECT_FALSE(idle);
    executor.advance(1ms);
    EXPECT_TRUE(idle);
    EXPECT_THAT(counts, ElementsAre(3));
    EXPECT_THAT(operations, ElementsAre(KZQ7306::importingOrErasing));
    EXPECT_EQ(looper().operation(), KZQ7306::idle);
    EXPECT_THAT(actions(), ElementsAre("ED 10 0", "ED 0 0", "ED 2 0"));
    EXPECT_EQ(looper().loops()->size(), 2U);
}

TEST_F(Erase, RefusalsOnlyLowerTheCount) {
    pedal.plan({FaultKind::refuse, Where::control, 0xED, 1, true});
    eraseLoops({1, 3, 10});
    executor.settle();
    EXPECT_THAT(counts, ElementsAre(0));
    EXPECT_EQ(executor.elapsed(), 0s);  // no pause without an erased loop
    EXPECT_FALSE(eraseLoops({}));
    EXPECT_FALSE(looper().eraseLoops({1}, nullptr));
    EXPECT_FALSE(looper().eraseLoop(21));
}

TEST_F(Erase, CancelTellsThePedalWithoutAResetAndIsIdleBeforeItsCompletion) {
    eraseLoops({1, 3, 10});
    executor.advance(30ms);
    looper().cancelTransfer();
    executor.advance(1s);
    EXPECT_THAT(counts, ElementsAre(2));
    EXPECT_THAT(operations, ElementsAre(KZQ7306::idle));
    EXPECT_THAT(actions(), ElementsAre("ED 0 0", "ED 2 0", "EF 1 0"));
    EXPECT_THAT(counts, ElementsAre(2));
}

}  // namespace
}  // namespace kzq::test
