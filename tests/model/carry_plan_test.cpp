#include "app/model/carry_plan.h"

#include <gmock/gmock.h>

namespace kzq {
namespace {

using testing::ElementsAre;

constexpr std::uint64_t second = framesPerSecond;
const std::vector<SlotNumber> someFree{2_slot, 5_slot, 6_slot, 9_slot};

class CarryPlanTest : public testing::Test {
  protected:
    /// A pedal with one loop, in slot 1, that leaves so much.
    void leave(std::uint64_t seconds) {
        Loops loops;
        loops.complete = true;
        loops.put(1_slot, Loop{.samples = static_cast<std::uint32_t>(capacityFrames - seconds * second)});
        model.arrived(loops);
    }
    CarryPlan plan(std::vector<CarriedFile> files, const std::vector<SlotNumber>& free = someFree) {
        return {model, free, std::move(files)};
    }
    static CarriedFile file(const char* name, std::optional<std::uint64_t> seconds, bool readable = true) {
        return {.name = std::string(name) + ".wav",
                .shown = name,
                .readable = readable,
                .length = seconds ? std::optional(Frames{*seconds * second}) : std::nullopt};
    }
    static std::vector<unsigned> rows(const CarryPlan& plan) {
        std::vector<unsigned> numbers;
        for (const auto& place : plan.places()) {
            numbers.push_back(place.slot ? place.slot->number() : 0U);
        }
        return numbers;
    }

    LoopModel model;
};

TEST_F(CarryPlanTest, ARefusedFileTakesNoRowAndNoRoomFromOthers) {
    leave(729);
    const auto mixed =
        plan({file("a", 80), file("Whole rehearsal", 1360), file("b", 20), file("c", 58), file("d", {})});
    EXPECT_THAT(rows(mixed), ElementsAre(2, 0, 5, 6, 9));
    EXPECT_EQ(mixed.sentence(), "4 of 5 files fit. Whole rehearsal is too long: 22:40, and 12:09 is left");
    EXPECT_EQ(mixed.said(), "4 of 5 files fit, Whole rehearsal is too long");
    const auto shown = plan({file("cover", {}, false), file("a", 80)});
    EXPECT_THAT(rows(shown), ElementsAre(5, 2)) << "behind the others";
    EXPECT_EQ(shown.sentence(), "1 of 2 files fits. cover cannot be read");
    EXPECT_EQ(shown.reason(0), "not readable");
}

TEST_F(CarryPlanTest, TheRoomIsWhatTheOthersLeaveOfItAndNeverAllOfIt) {
    leave(100);
    const auto both = plan({file("a", 60), file("b", 60)});
    EXPECT_EQ(both.sentence(), "1 of 2 files fits. b is too long: 1:00, and 0:40 is left beside the others");
    EXPECT_EQ(plan({file("a", 100)}).sentence(), "a is too long: 1:40, and 1:40 is left");
    EXPECT_EQ(plan({file("a", 99)}).sentence(), "1 file fits");
    EXPECT_EQ(fateOn(model, 1_slot, file("a", 1000)), CarryFate::fits) << "the loop there makes room";
    EXPECT_EQ(fateOn(model, 2_slot, file("a", 100)), CarryFate::tooLong);
}

TEST_F(CarryPlanTest, SeveralReasonsAreNamesAndRowsRunOut) {
    leave(100);
    EXPECT_EQ(plan({file("a", 500), file("b", 1, false), file("c", 1)}).sentence(),
              "1 of 3 files fits. Left out: a and b");
    const auto full = plan({file("a", 1), file("b", 1), file("c", 500)}, {7_slot});
    EXPECT_THAT(rows(full), ElementsAre(7, 0, 0));
    EXPECT_EQ(plan({file("a", 1), file("b", 1)}, {7_slot}).sentence(),
              "1 of 2 files fits. No other row is free");
    EXPECT_EQ(plan({file("a: b", 500)}).said(), "a: b is too long");
}

}  // namespace
}  // namespace kzq
