#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "operations/outcome.h"
#include "operations/pedal.h"
#include "pedal_fixture.h"
#include "test_folder.h"

namespace kzq::test {

/// A pedal with loops in slots 1, 3, 10, 11 and 20 for an operation on a thread of its own.
class OperationTest : public PedalTest {
  protected:
    OperationTest() {
        KZQ7306::looper()->setDelegate(cable_);
        hold({});
    }

    /// The run that follows works with these limits.
    void hold(Pedal::Limits limits) {
        work = Pedal::create(executor, KZQ7306::looper(), std::move(limits));
        cable_->work = work;
        said.clear();
        pedal.clearJournal();
    }
    /// Runs `task` to its end, which is an hour at most.
    template <class Task>
    auto run(const Task& task) {
        std::optional<decltype(task())> result;
        executor.background(Priority::standard, [&] { result.emplace(task()); });
        EXPECT_TRUE(executor.advanceUntil([&] { return result.has_value(); }));
        return std::move(result).value();
    }

    void plan(const std::string& fault) { pedal.plan(simulator::faultFromText(fault).value()); }
    /// A working copy of so many frames.
    ExportInfo copy(SlotNumber slot, std::uint32_t frames) const {
        const auto file = folder / ("copy " + std::to_string(slot.number()) + ".wav");
        const auto image = wave(noise(frames, slot.number()), 2).value();
        writeText(file, std::string(image.begin(), image.end()));
        return exportInfoForLoop(slot.number(), false, file, frames * frameBytes).value();
    }
    static Loops table() { return looper().loops().value(); }
    long count(const std::string& event) const { return std::ranges::count(wire(), event); }
    /// What is told of the loops: "3 saved", "3 saved no-room".
    Events events() {
        return {.begins = [this](SlotNumber slot, Step step) { onBegin(slot, step); },
                .slot = [this](const SlotOutcome& outcome) { said.push_back(text(outcome)); }};
    }
    static std::string text(const SlotOutcome& outcome) {
        constexpr std::array did = {"failed", "saved", "sent",      "written",    "compared",
                                    "erased", "kept",  "unchanged", "same length"};
        return std::to_string(outcome.slot.number()) + " " + did.at(static_cast<std::size_t>(outcome.did)) +
               (outcome.trouble ? " " + std::string(troubleName(outcome.trouble->kind)) : "");
    }
    /// Why it ended early.
    static std::string end(const Outcome& outcome) {
        return outcome.end ? std::string(troubleName(outcome.end->kind)) : "";
    }
    void cancel() { work->stop(Trouble{Trouble::Kind::cancelled}); }

    TestFolder folder;
    std::shared_ptr<Pedal> work;
    std::vector<std::string> said;
    std::function<void(SlotNumber, Step)> onBegin = [](auto...) {};

  private:
    struct Cable : KZQ7306Delegate {
        void looperIsConnected(KZQ7306& looper) override { work->returned(looper.stage()); }
        void looperHasBeenDisconnected() override { work->left(); }
        void looperInternalStateChanged(const Status& /*status*/) override {}

        std::shared_ptr<Pedal> work;
    };
    std::shared_ptr<Cable> cable_ = std::make_shared<Cable>();
};

}  // namespace kzq::test
