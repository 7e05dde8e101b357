#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "ctl/pedal/environment.h"
#include "ctl/speech/options.h"
#include "ctl/speech/output.h"
#include "ctl/speech/report.h"
#include "ctl/speech/sentences.h"
#include "device/kzq7306.h"
#include "platform/fixed.h"

namespace kzq::ctl {

/// What a command works with.
struct Context {
    const Options& options;
    Executor& executor;
    Output& output;
    /// Ends the program; only the first call counts. Main thread, or any while that one hangs.
    std::function<void(ExitCode)> finish;
    const Environment& environment;

    /// Reports why the command ends before its work is done.
    void explain(const Explanation& explanation) const { Report(output, options.json).stopped(explanation); }
    /// Reports it and ends the program.
    void fail(const Explanation& explanation) const {
        explain(explanation);
        finish(explanation.code);
    }
};

/// One command. All members are called on the main thread, and none of them waits for the pedal.
class Command : Fixed {
  public:
    virtual ~Command() = default;

    /// What stands in the way before the pedal is touched.
    virtual std::optional<Explanation> obstacle() { return std::nullopt; }
    /// Begins, and answers true, if the command is one that needs no pedal.
    virtual bool withoutPedal() { return false; }
    /// The pedal is there; called with the device lock held, at most once unless the command watches.
    virtual void connected(const std::shared_ptr<KZQ7306>& looper) = 0;
    virtual void disconnected() = 0;
    virtual void changed(const Status& status) { static_cast<void>(status); }
    /// Whether stopping now would do harm. Meanwhile `cancel` may come again and again, and the program goes
    /// on. Any thread.
    virtual bool mustFinish() const { return false; }
    /// The user wants to stop: ends the program soon. Otherwise called at most once.
    virtual void cancel() = 0;
};

}  // namespace kzq::ctl
