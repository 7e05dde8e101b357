#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "app/flow/flows.h"
#include "device/kzq7306.h"
#include "fake_usb.h"
#include "virtual_executor.h"

namespace kzq::test {

namespace {

using namespace std::chrono_literals;

/// What a flow does before its end; each may come to its end earlier.
struct Script {
    Executor::Duration question;        ///< before the window is covered
    bool covers;                        ///< otherwise it returns
    bool waits;                         ///< for a cancel or a departure
    enum { returns, ends, busy } last;  ///< busy: the window stays covered
    Executor::Duration after;           ///< its turn is over, and it is not
};

/// Any flows, one after the other, with whatever happens meanwhile. No flow lasts longer than an hour.
class Life {
  public:
    Life() {
        KZQ7306::load({executor, usb, [] { return 36; }});
    }
    ~Life() {
        executor.endJobs();
        flows.reset();
        KZQ7306::unload();
    }

    void next() {
        switch (*rc::gen::inRange(0, 9)) {
            case 0:
            case 1:
            case 2:
                begin();
                break;
            case 3:
                flows->cancel();
                executor.settle();
                RC_ASSERT(waiting == 0);
                break;
            case 4:
                flows->pedalLeft();
                executor.settle();
                RC_ASSERT(waiting == 0);
                break;
            case 5:
                ask();
                break;
            default:
                executor.advance(anyTime());
        }
        check();
    }

    /// The buttons are alive, however it came here.
    void end() {
        flows->cancel();
        executor.advance(2h);
        check();
        RC_ASSERT(open == stuck && waiting == 0);
        begin();
        check();
    }

    /// Whatever stands before the window returns, a question that it has not seen yet included.
    void close() {
        const bool was = shield;
        flows->start({}, [this](Run& run) {
            ++inside;
            run.ask([] {});
            --inside;
        });
        executor.main([this] {
            window.reset();
            flows.reset();
        });
        executor.advance(2h);
        RC_ASSERT(inside == 0 && shield == was);
    }

  private:
    static Executor::Duration anyTime() { return std::chrono::milliseconds(*rc::gen::inRange(0, 4)); }

    Flows::Flow anyFlow() {
        const Script script{anyTime(), *rc::gen::inRange(0, 4) != 0, *rc::gen::arbitrary<bool>(),
                            *rc::gen::weightedElement<decltype(Script::last)>(
                                {{4, Script::returns}, {4, Script::ends}, {1, Script::busy}}),
                            anyTime()};
        return [this, script](Run& run) { work(run, script); };
    }

    void begin() {
        const auto expected = begun + (open == 0 ? 1 : 0);
        const auto said = busy + (shield ? 1 : 0);
        flows->start({}, anyFlow());
        executor.settle();
        RC_ASSERT(begun == expected && busy == said);
    }

    /// A flow that begins with a question in the press itself; another press comes under it.
    void ask() {
        auto turn = flows->take();
        RC_ASSERT(turn.has_value() == (open == 0));
        if (!turn) {
            return;
        }
        ++open;
        begin();
        --open;
        if (*rc::gen::arbitrary<bool>()) {
            flows->start(std::move(*turn), {}, anyFlow());
            executor.settle();
        }
    }

    void work(Run& run, const Script& script) {
        ++begun;
        ++inside;
        two = two || open++ != 0;
        if (!perform(run, script)) {
            executor.main([this] { --open; });
        }
        --inside;
    }

    /// Whether its turn is over already, or is never over.
    bool perform(Run& run, const Script& script) {
        executor.sleep(script.question);
        if (!script.covers || !run.ask([&] { run.turn.cover(); })) {
            return false;
        }
        if (script.waits) {
            ++waiting;
            run.pedal->aside([this] { executor.sleep(1h); });
            --waiting;
        }
        if (script.last == Script::returns) {
            return false;
        }
        Outcome outcome;
        if (script.last == Script::busy) {
            outcome.end = Trouble{Trouble::Kind::busy};
        }
        const bool asked = run.ask([&] {
            run.end(outcome, [&] { RC_ASSERT(shield); });
            (outcome.end ? stuck : open) += outcome.end ? 1 : -1;
        });
        executor.sleep(script.after);
        return asked;
    }

    void check() {
        RC_ASSERT(!two && !shieldTwice);
        RC_ASSERT((flows->starting() || flows->running()) == (open != 0));
        RC_ASSERT(flows->running() == shield);
        RC_ASSERT(stuck == 0 || shield);
    }

    VirtualExecutor executor;
    FakeUsb usb{executor};
    bool shield = false;
    bool shieldTwice = false;  ///< it went up, or down, when it was there
    bool two = false;          ///< at a time
    int begun = 0;
    int inside = 0;   ///< flows that have not returned
    int open = 0;     ///< turns that are not over
    int stuck = 0;    ///< those that never will be
    int waiting = 0;  ///< for the end of their work
    int busy = 0;     ///< times that the user was told
    std::shared_ptr<int> window = std::make_shared<int>();
    std::optional<Flows> flows{
        std::in_place, executor,
        FlowWindow{window, [this](bool up) { shieldTwice = shieldTwice || std::exchange(shield, up) == up; },
                   [this] { ++busy; }, [] {}},
        &KZQ7306::looper};
};

TEST(Flows, EveryTurnEndsOnceWhateverHappens) {
    rc::detail::checkGTest([] {
        Life life;
        const auto length = *rc::gen::inRange(1, 30);
        for (int step = 0; step < length; ++step) {
            life.next();
        }
        if (*rc::gen::arbitrary<bool>()) {
            life.end();
        }
        life.close();
    });
}

struct FlowsTest : testing::Test {
    ~FlowsTest() override { executor.endJobs(); }

    VirtualExecutor executor;
    std::shared_ptr<int> window = std::make_shared<int>();
    std::optional<Flows> flows{std::in_place, executor, FlowWindow{window, {}, {}, {}},
                               [] { return nullptr; }};
};

TEST_F(FlowsTest, AWindowThatGoesEndsWhatWaitsForIt) {
    // The one whose question stands still has it answered; nobody else gets in any more.
    bool answered = false;
    std::optional<bool> later;
    flows->start({}, [&](auto& run) {
        EXPECT_EQ(run.ask([&] {
            run.turn.cover();
            window.reset();
            flows.reset();
            executor.advance(1s);  // an event loop
            EXPECT_FALSE(answered || later);
            return 5;
        }),
                  5);
        answered = true;
        later = run.ask([] { FAIL(); });
        EXPECT_FALSE(run.idle());
    });
    executor.advance(1min);
    EXPECT_TRUE(answered);
    EXPECT_EQ(later, false);
}

}  // namespace

}  // namespace kzq::test
