#include <algorithm>

#include "audio/wave.h"
#include "operation.h"
#include "operations/erase.h"
#include "operations/export.h"
#include "operations/import.h"
#include "operations/read_loop.h"
#include "operations/verify.h"

namespace kzq::test {

namespace {

using Did = SlotOutcome::Did;

std::string imageOf(const Bytes& audio) {
    const auto image = wave(audio, 2).value();
    return {image.begin(), image.end()};
}

/// Into a folder that has a file of the same name as one of the loops.
class Importing : public LoopOperation {
  public:
    explicit Importing(bool window) : LoopOperation(Deed::save, window) {}

    void prepare(World& world) override {
        writeText(world.folder / "Loop 3.wav", "mine");
        world.plugIn();
        aims_ = {{1_slot, {}}, {3_slot, {}}, {20_slot, {}}};
    }
    std::string computer(World& world) const override {
        const auto count = reached(world);
        return count == 0 ? "no file" : count == 3 ? "all files" : "whole files of some";
    }
    Said said() const override {
        auto said = LoopOperation::said();
        const auto told = toldImport(outcome_, asked(), "/loops");
        said.sentences.push_back(told.what + (told.why.empty() ? "" : ": " + told.why));
        said.line = window() ? said.sentences.back() : said.line;
        return said;
    }
    void checkFiles(World& world) override {
        EXPECT_EQ(readText(world.folder / "Loop 3.wav"), "mine");
        for (const auto& name : namesIn(world.folder)) {  // whole, whether it is told of or not
            const auto known = std::ranges::any_of(before_, [&](const auto& loop) {
                return name.starts_with(loopName(loop.first)) &&
                       readText(world.folder / name) == imageOf(loop.second);
            });
            EXPECT_TRUE(known || name == "Loop 3.wav") << name;
        }
    }

  protected:
    void run(World& world) override {
        const auto status = table(world);
        if (!status) {
            return;
        }
        ImportOrder order{
            .folder = world.folder, .exact = !window(), .batches = window() ? Batches::one : Batches::each};
        for (const auto& [slot, loop] : status->loops) {
            order.loops.push_back({slot, loopName(slot), {loop.samples}});
        }
        outcome_ = runImport(*world.work, order, {});
    }
    void checkClaim(World& /*world*/, const SlotOutcome& loop) override {
        if (!loop.trouble) {
            EXPECT_EQ(readText(loop.file), imageOf(before_.at(loop.slot)));
        }
    }
    std::size_t reached(World& world) const override { return namesIn(world.folder).size() - 1; }
};

/// Over a loop, and into two empty slots; the tool reads each back, the window all of them afterwards.
class Exporting : public LoopOperation {
  public:
    explicit Exporting(bool window) : LoopOperation(Deed::write, window) {}

    void prepare(World& world) override {
        world.plugIn();
        aims_ = {{2_slot, audioOf(200, 52)}, {3_slot, audioOf(400, 53)}, {4_slot, audioOf(1, 54)}};
        for (const auto& [slot, audio] : aims_) {
            const auto file = world.folder / (loopName(slot) + ".wav");
            writeText(file, imageOf(*audio));
            exports_[slot] = exportInfoForLoop(slot.number(), false, file, audio->size()).value();
        }
    }
    void check(World& world) override {
        LoopOperation::check(world);
        const auto held = world.held();
        for (const auto& loop : verified_.slots) {
            EXPECT_TRUE(loop.trouble || held.at(loop.slot) == aims_.at(loop.slot)) << "not verified";
        }
    }
    void checkFiles(World& world) override { EXPECT_EQ(namesIn(world.folder).size(), 3U); }

  protected:
    void run(World& world) override {
        const auto status = table(world);
        if (!status) {
            return;
        }
        outcome_ = runExport(*world.work,
                             {.exports = exports_,
                              .seen = status->loops,
                              .batches = window() ? Batches::one : Batches::each,
                              .verify = true},
                             {});
        if (window() && outcome_.whole()) {
            verified_ = runVerify(*world.work, outcome_.slots, {});
        }
    }

  private:
    Exports exports_;
    Outcome verified_;
};

class Erasing : public LoopOperation {
  public:
    explicit Erasing(bool window) : LoopOperation(Deed::erase, window) {}

    bool cancels() const override { return false; }  // there is nothing to press
    void prepare(World& world) override {
        world.plugIn();
        aims_ = {{1_slot, {}}, {3_slot, {}}};
    }

  protected:
    void run(World& world) override {
        if (const auto status = table(world); status && !aims_.empty()) {
            outcome_ = runErase(*world.work, {asked(), status->loops}, {});
        }
    }
};

/// One loop, for who hears it while it comes.
class Listening : public LoopOperation {
  public:
    Listening() : LoopOperation(Deed::save, true) {}

    void prepare(World& world) override {
        world.plugIn();
        aims_ = {{20_slot, {}}};
    }
    void check(World& world) override {
        LoopOperation::check(world);
        const auto& whole = before_.at(20_slot);
        heard_.resize(std::min(heard_.size(), whole.size()));
        EXPECT_TRUE(std::equal(heard_.begin(), heard_.end(), whole.begin())) << "something else is heard";
    }
    std::string computer(World& /*world*/) const override { return came_ ? "the whole loop" : "what came"; }

  protected:
    void run(World& world) override {
        before_ = world.held();
        outcome_.wanted = 1;
        const Events events{.arrived = [this](SlotNumber, ByteView audio) {
            heard_.insert(heard_.end(), audio.begin(), audio.end());
        }};
        auto image = readLoop(*world.work, 20_slot, Step::read, events, outcome_);
        if (image) {
            came_ = image->has_value();
            auto trouble = came_ ? std::nullopt : std::optional(image->error());
            outcome_.slots.push_back({20_slot, came_ ? Did::saved : Did::failed, std::move(trouble)});
            EXPECT_TRUE(!came_ || **image == wave(before_.at(20_slot), 2));
        }
    }
    void checkClaim(World& /*world*/, const SlotOutcome& /*loop*/) override {}
    std::size_t reached(World& /*world*/) const override { return came_ ? 1 : 0; }

  private:
    Bytes heard_;
    bool came_ = false;
};

template <class Kind>
Make making(bool window) {
    return [window] { return std::make_unique<Kind>(window); };
}

}  // namespace

Make importOperation(bool window) {
    return making<Importing>(window);
}

Make exportOperation(bool window) {
    return making<Exporting>(window);
}

Make eraseOperation(bool window) {
    return making<Erasing>(window);
}

Make listenOperation() {
    return [] { return std::make_unique<Listening>(); };
}

}  // namespace kzq::test
