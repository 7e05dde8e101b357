#include "operations/flash.h"

#include "operation_fixture.h"

namespace kzq::test {
namespace {

using How = FlashEnd::How;
using Phase = FlashPhase;

class FlashWork : public OperationTest {
  protected:
    FlashWork() {
        const std::string mark = "7306 firmware 1.06";
        std::ranges::copy(mark, image.begin());
        limits(60s);
    }

    /// Those of the tool; or of the window, which waits.
    void limits(Executor::Duration silence, bool leaveBehind = true) {
        hold({.silence = silence, .leaveBehind = leaveBehind});
    }
    FlashEnd flash() {
        phases.clear();
        return run(
            [this] { return runFlash(*work, image, {.phase = [this](Phase phase) { enter(phase); }}); });
    }
    /// Where and why nothing was sent to its end.
    std::string failure(const FlashEnd& end) const {
        EXPECT_EQ(end.how, How::notSent);
        EXPECT_EQ(pedal.installedFirmware(), std::nullopt);
        return end.why ? std::string(troubleName(end.why->kind)) : "";
    }
    std::string failure() { return failure(flash()); }
    void enter(Phase phase) {
        phases.push_back(phase);
        onPhase(phase);
    }

    Bytes image = Bytes(3000, 7);
    std::vector<Phase> phases;
    std::function<void(Phase)> onPhase = [](auto) {};
};

TEST_F(FlashWork, APedalThatKeepsItsFirmware) {
    plan("refuse@E4");
    EXPECT_EQ(failure(), "loader-refused");
    pedal.setBusy(true);
    EXPECT_EQ(failure(), "busy");
    pedal.setBusy(false);
    limits(5s);
    plan("silence@E8");
    EXPECT_EQ(failure(), "silent");
    executor.advance(5s);
    EXPECT_THAT(wire(), Not(Contains("reset"))) << "it would be sent into its loader";
    cancel();
    EXPECT_EQ(failure(), "cancelled");
    EXPECT_THAT(phases, IsEmpty());
}

TEST_F(FlashWork, TheUpdateStaysPendingForWhoWaits) {
    limits(60s, false);
    pedal.setReturns(false);
    executor.mainAfter(90s, [this] {
        pedal.setStage('p');
        pedal.plugIn();
    });
    executor.mainAfter(3min, [this] {
        pedal.unplug();
        pedal.setStage('b');
        pedal.setReturns(true);
        pedal.plugIn();
    });
    EXPECT_EQ(flash().how, How::sent);
    EXPECT_THAT(phases, ElementsAre(Phase::asking, Phase::restarting, Phase::left, Phase::cameBack,
                                    Phase::sending, Phase::sent));
    EXPECT_EQ(pedal.installedFirmware(), image);
}

TEST_F(FlashWork, NothingButItsOwnEndEndsTheImage) {
    limits({});  // for ever
    onPhase = [this](Phase phase) {
        if (phase == Phase::left || phase == Phase::sending) {
            cancel();
        }
    };
    EXPECT_EQ(flash().how, How::sent);
    EXPECT_EQ(pedal.installedFirmware(), image);
}

TEST_F(FlashWork, WithoutALimitAStopStillComesToAnEnd) {
    limits({});
    pedal.setReturns(false);
    executor.mainAfter(3min, [this] { cancel(); });
    EXPECT_EQ(failure(), "no-return");
    EXPECT_EQ(executor.elapsed() / 1min, 4);
}

}  // namespace
}  // namespace kzq::test
