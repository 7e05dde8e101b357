#include "world.h"

#include <unistd.h>

#include <cstdlib>
#include <iterator>

#include "audio/wave.h"
#include "operations/ended_twice.h"
#include "operations/read_loop.h"

namespace kzq::test {

namespace {

simulator::StoredLoop stored(Bytes audio) {
    return {.audio = std::move(audio), .tempo = 100, .channel = 3};
}

simulator::PedalMemory threeLoops() {
    simulator::PedalMemory memory;
    memory[0] = stored(audioOf(1, 1));      // one piece, nearly all of it padding
    memory[2] = stored(audioOf(300, 2));    // two pieces
    memory[19] = stored(audioOf(700, 20));  // five
    return memory;
}

}  // namespace

Bytes audioOf(std::size_t frames, std::uint32_t seed) {
    static const std::size_t scale = std::getenv("SWEEP") == nullptr ? 1 : 20;  // NOLINT(*-mt-unsafe)
    Bytes audio(frames * (frames == 1 ? 1 : scale) * frameBytes);
    for (auto& byte : audio) {
        seed = seed * 1'664'525U + 1'013'904'223U;
        byte = static_cast<std::uint8_t>(seed >> 24U);
    }
    return audio;
}

std::filesystem::path quickPlace() {
    const std::filesystem::path memory = "/dev/shm";
    constexpr std::uintmax_t room = 20'000'000;
    const bool usable = ::access(memory.c_str(), W_OK) == 0 && space(memory).available > room;
    return usable ? memory : std::filesystem::temp_directory_path();
}

Memory memoryOf(const simulator::SimulatedPedal& pedal) {
    Memory memory;
    auto loops = pedal.memory();
    for (const auto slot : allSlots()) {
        if (auto& loop = loops.at(slot.address().wire())) {
            memory[slot] = std::move(loop->audio);
        }
    }
    return memory;
}

World::World(char stage) : pedal(executor, {threeLoops(), "1.05", stage}) {
    previousSink_ = setLogSink([](auto, auto line) { EXPECT_NE(line, endedTwice); });
    KZQ7306::load({executor, port, [] { return 36U; }, 3s});
}

World::~World() {
    work.reset();
    executor.endJobs();
    KZQ7306::unload();
    setLogSink(previousSink_);
}

void World::plugIn() {
    pedal.plugIn();
    KZQ7306::initialize(delegate);
    executor.settle();
}

void World::begin(bool window, bool cancels) {
    Pedal::Limits limits{.silence = 3s, .leaveBehind = !window};
    if (cancels) {
        limits.silent = [this] { work->stop(Trouble{Trouble::Kind::cancelled}); };
    }
    work = Pedal::create(executor, KZQ7306::looper(), std::move(limits));
}

bool World::run(const Executor::Task& task, Executor::Duration limit) {
    const auto ended = std::make_shared<unsigned>(0);
    executor.background(Priority::standard, [task, ended] {
        task();
        ++*ended;
    });
    return executor.advanceUntil([&] { return *ended == 1 || over_; }, limit) && !over_;
}

void World::set(SlotNumber slot, std::optional<Bytes> audio) {
    pedal.setLoop(slot.address().wire(), audio ? std::optional(stored(std::move(*audio))) : std::nullopt);
}

void World::Delegate::looperIsConnected(KZQ7306& looper) {
    EXPECT_FALSE(std::exchange(connected, true)) << "announced twice";
    if (world.work) {
        world.work->returned(looper.stage());
    }
}

void World::Delegate::looperHasBeenDisconnected() {
    connected = false;
    if (world.work) {
        world.work->left();
    }
}

void World::happen(Mishap mishap, const UsbCall& call) {
    const auto stop = [pedalWork = work] {
        if (pedalWork) {
            pedalWork->stop(Trouble{Trouble::Kind::cancelled});
        }
    };
    if (mishap == Mishap::cancel) {
        stop();
    }
    if (mishap == Mishap::silenceThenCancel) {
        executor.background(Priority::standard, [this, stop] {
            executor.sleep(1s);
            stop();
        });
    }
    if (mishap == Mishap::quit) {
        over_ = true;
        executor.onMainThread() ? void() : executor.sleep(24h);  // what would come next
    }
    if (mishap == Mishap::backAsAnother) {
        left_ = memoryOf(pedal);
        pedal.unplug();
        for (auto& [slot, audio] : other_ = *left_) {
            for (auto& byte : audio) {
                byte ^= 0xFF;
            }
            set(slot, audio);
        }
    }
    befall(executor, pedal, mishap, call);
}

void World::expectOtherUntouched() const {
    EXPECT_TRUE(!left_ || memoryOf(pedal) == other_) << "another pedal was touched";
}

/// What leaves a silent pedal behind may hang until the cable is pulled. An update stays pending until a
/// pedal comes that runs its loader.
void World::expectIdle(bool mayHang) {
    auto& link = *KZQ7306::looper();
    const auto idle = [&link] { return link.operation() == KZQ7306::idle; };
    if (!executor.advanceUntil(idle, 5s)) {
        EXPECT_TRUE(mayHang) << "it stays busy";
        pedal.unplug();
        executor.advance(5s);
    }
    if (link.flashPending()) {
        befall(executor, pedal, Mishap::backAsLoader, {});
        executor.advance(1min);
        EXPECT_TRUE(pedal.installedFirmware()) << "the update does not go on";
    }
    EXPECT_TRUE(idle());
}

void World::expectGoodManners() const {
    for (const auto& violation : pedal.violations()) {
        EXPECT_THAT(violation, testing::HasSubstr("a trailer of 18 bytes"));  // the rest of one cut in half
    }
}

void World::expectRecovery(bool leavesBehind) {
    const auto mishap = port.mishap();
    const bool silent = mishap == Mishap::silence || mishap == Mishap::silenceThenCancel;
    port.arm();
    expectIdle((silent && leavesBehind) || KZQ7306::looper()->flashPending());
    expectGoodManners();
    pedal.unplug();
    executor.advance(1s);
    EXPECT_EQ(port.openHandles(), 0);
    EXPECT_FALSE(delegate->connected);
    pedal.clearFaults();
    pedal.setStage(stageNormal);
    set(7_slot, audioOf(10, 7));
    pedal.plugIn();
    executor.advance(1s);
    EXPECT_TRUE(delegate->connected);
    begin(false, false);
    std::optional<Result<Bytes>> image;
    EXPECT_TRUE(run([&] {
        Outcome outcome;
        image = readLoop(*work, 7_slot, Step::read, {}, outcome);
    }));
    EXPECT_TRUE(image && *image && **image == wave(audioOf(10, 7), 2)) << "the next operation fails";
    work.reset();
    executor.advance(7s);  // over the next poll, whose report is whole
    EXPECT_TRUE(!delegate->reported.empty() && delegate->reported.back().loops.contains(7_slot));
    pedal.unplug();
    executor.advance(1s);
    EXPECT_EQ(executor.jobs(), 0U) << "threads are left";
}

std::size_t openDescriptors() {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}));
}

}  // namespace kzq::test
