#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "operations/told.h"
#include "world.h"

namespace kzq::test {

/// What is said at the end.
struct Said {
    std::string line;                         ///< by the one that does it
    std::vector<std::string> sentences = {};  ///< by window and tool, the line included
    int exit = 0;                             ///< of the tool
};

/// Something that is done with a pedal, once in each world. Its members are called in this order.
class Operation : Fixed {
  public:
    virtual ~Operation() = default;

    /// As the window does it, not as the tool.
    bool window() const { return window_; }
    /// Whether its user ends it when told of a silence.
    virtual bool cancels() const { return window_; }
    virtual char stage() const { return stageNormal; }
    /// Before calls are counted; the pedal is there.
    virtual void prepare(World& world) { world.plugIn(); }
    /// Whether it ended.
    virtual bool perform(World& world) {
        return world.run([&] { run(world); });
    }
    /// Whether it may last until another pedal comes.
    virtual bool mayLast() const { return false; }
    /// Whether it ends without a pedal that has fallen silent, and leaves that as it is.
    virtual bool leavesBehind() const { return !window_; }
    /// Otherwise the pedal's loops stay what they are, whatever happens.
    virtual bool changesLoops() const { return false; }
    /// What it claims is true, and nothing else was touched.
    virtual void check(World& world) = 0;
    /// Files are whole, and none is lost; at any moment.
    virtual void checkFiles(World& /*world*/) {}
    virtual Said said() const = 0;
    /// "untouched", "as asked".
    virtual std::string pedal(World& world) const = 0;
    virtual std::string computer(World& /*world*/) const { return "–"; }

  protected:
    explicit Operation(bool window) : window_(window) {}
    /// On a thread of its own.
    virtual void run(World& /*world*/) {}

  private:
    const bool window_;
};

/// One that is given loops, which it is to make what `aims` says; the others stay.
class LoopOperation : public Operation {
  public:
    bool changesLoops() const override { return deed_ != Deed::save; }
    void check(World& world) override;
    Said said() const override;
    std::string pedal(World& world) const override;

  protected:
    LoopOperation(Deed deed, bool window) : Operation(window), deed_(deed) {}

    /// The pedal's table; otherwise it has been noted why there is none.
    std::optional<Status> table(World& world);
    std::vector<SlotNumber> asked() const;
    virtual void checkClaim(World& world, const SlotOutcome& loop);
    /// How many have come to what was asked for, in truth.
    virtual std::size_t reached(World& world) const;

    const Deed deed_;
    Memory before_;
    std::map<SlotNumber, std::optional<Bytes>> aims_;  ///< nothing: empty
    Outcome outcome_;

  private:
    void checkWords(World& world) const;
};

/// By name: how to make one.
std::vector<std::pair<std::string, std::function<std::unique_ptr<Operation>()>>> operations();

// the parts of that list
using Make = std::function<std::unique_ptr<Operation>()>;
Make importOperation(bool window);
Make exportOperation(bool window);
Make eraseOperation(bool window);
Make listenOperation();
Make backupOperation();
Make keepOperation();
Make restoreOperation();
Make flashOperation(char stage, bool window);
Make watchOperation(bool arrival);

}  // namespace kzq::test
