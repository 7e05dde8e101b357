#include <algorithm>

#include "ctl/speech/exit_codes.h"
#include "operation.h"
#include "operations/flash.h"
#include "operations/sentences.h"

namespace kzq::test {

namespace {

/// Version 1.06, which the pedal says of itself once it runs it.
class Flashing : public Operation {
  public:
    Flashing(char stage, bool window) : Operation(window), stage_(stage) {}

    char stage() const override { return stage_; }
    bool mayLast() const override { return window(); }
    bool leavesBehind() const override { return true; }
    void check(World& world) override {
        const bool installed = world.pedal.installedFirmware() == image_;
        EXPECT_TRUE(installed || !world.pedal.installedFirmware());
        if (end_.how == FlashEnd::How::confirmed && end_.version == "1.06") {
            EXPECT_TRUE(installed);
        }
        if (end_.how == FlashEnd::How::sent && !end_.why) {
            EXPECT_TRUE(installed);
        }
        const auto all = said().sentences;
        for (const auto* const denial :
             {"keeps its firmware", "othing was ", "did not take", "not complete", "before the firmware was",
              "waits in its loader", "No firmware was installed", "not be sent completely",
              "did not accept"}) {
            for (const auto& sentence : all) {
                EXPECT_FALSE(installed && world.port.mishap() != Mishap::backAsLoader &&
                             sentence.find(denial) != std::string::npos)
                    << sentence;
            }
        }
    }
    Said said() const override {
        if (!over_) {
            return {.line = "–", .exit = -1};
        }
        const auto told = kzq::told(end_, sent_, "1.06");
        Said said{.line = told.what + (told.why.empty() ? "" : ": " + told.why), .exit = exitCode()};
        said.sentences = {said.line, told.detail, flashSentence(end_, "run the same command again")};
        said.line = window() ? said.line : said.sentences.back();
        return said;
    }
    std::string pedal(World& world) const override {
        return world.pedal.installedFirmware() ? "the new firmware" : "not the new firmware";
    }

  protected:
    void run(World& world) override {
        sent_ = runFlash(*world.work, image_, {});
        end_ = confirmFlash(*world.work, sent_, {});
        over_ = true;
    }

  private:
    /// As the tool does it with firmware of a known version.
    int exitCode() const {
        using How = FlashEnd::How;
        using Kind = Trouble::Kind;
        if (end_.how == How::confirmed && end_.version == "1.06") {
            return 0;
        }
        return static_cast<int>(ctl::exitCode(end_.how == How::notSent       ? end_.why.value().kind
                                              : end_.how == How::inLoader    ? Kind::stillInLoader
                                              : end_.how == How::unconfirmed ? Kind::unconfirmed
                                                                             : Kind::olderVersion));
    }
    static Bytes makeImage() {
        Bytes image = audioOf(100, 9);
        std::ranges::copy(std::string_view("7306 firmware 1.06"), image.begin());
        return image;
    }

    const char stage_;
    const Bytes image_ = makeImage();
    FlashEnd sent_;
    FlashEnd end_;
    bool over_ = false;
};

/// A pedal that arrives, or is there and polled.
class Watching : public Operation {
  public:
    explicit Watching(bool arrival) : Operation(true), arrival_(arrival) {}

    bool leavesBehind() const override { return true; }
    void prepare(World& world) override {
        if (!arrival_) {
            world.plugIn();
        }
    }
    /// Over the reset of a silent pedal; or two polls.
    bool perform(World& world) override {
        world.work.reset();
        if (arrival_) {
            world.plugIn();
        }
        world.executor.advance(arrival_ ? 4s : 12s);
        return true;
    }
    void check(World& world) override {
        const auto& link = *KZQ7306::looper();
        connected_ = world.delegate->connected;
        trouble_ = link.acquisitionTrouble();
        EXPECT_EQ(connected_, !link.disconnected() && !trouble_);
        EXPECT_TRUE(!connected_ || world.pedal.isPlugged());
        for (const auto& status : world.delegate->reported) {
            EXPECT_TRUE(status.loops.complete);
            EXPECT_TRUE(isOf(world.held(), world, status.loops) ||
                        (world.swapped() && isOf(memoryOf(world.pedal), world, status.loops)))
                << "a table that is not the pedal's is reported";
        }
    }
    Said said() const override {
        const auto line = connected_ ? "connected"
                          : trouble_ ? pedalSentence(*trouble_)
                                     : "the window without a pedal";
        return {.line = line, .sentences = {line}, .exit = -1};
    }
    std::string pedal(World& world) const override {
        return world.swapped() ? "the other one, untouched" : "untouched";
    }

  private:
    /// With all of its loops, unless the pedal itself says otherwise.
    static bool isOf(const Memory& memory, const World& world, const Loops& table) {
        const bool less = world.port.mishap() == Mishap::zeros || world.port.mishap() == Mishap::backAsLoader;
        return (less || table.size() == memory.size()) && std::ranges::all_of(table, [&](const auto& loop) {
                   const auto held = memory.find(loop.first);
                   return held != memory.end() && held->second.size() == loop.second.bytes;
               });
    }

    const bool arrival_;
    bool connected_ = false;
    std::optional<Trouble> trouble_;
};

}  // namespace

Make flashOperation(char stage, bool window) {
    return [=] { return std::make_unique<Flashing>(stage, window); };
}

Make watchOperation(bool arrival) {
    return [=] { return std::make_unique<Watching>(arrival); };
}

std::vector<std::pair<std::string, Make>> operations() {
    return {{"arrival", watchOperation(true)},
            {"poll", watchOperation(false)},
            {"import, tool", importOperation(false)},
            {"import, window", importOperation(true)},
            {"listening", listenOperation()},
            {"export, tool", exportOperation(false)},
            {"export, window", exportOperation(true)},
            {"erase, tool", eraseOperation(false)},
            {"erase, window", eraseOperation(true)},
            {"backup", backupOperation()},
            {"restore", restoreOperation()},
            {"keeping copies", keepOperation()},
            {"firmware, tool", flashOperation(stageNormal, false)},
            {"firmware, window", flashOperation(stageNormal, true)},
            {"firmware from the loader, tool", flashOperation(stageFactoryBlank, false)},
            {"firmware from the loader, window", flashOperation(stageFactoryBlank, true)}};
}

}  // namespace kzq::test
