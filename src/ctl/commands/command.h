#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "ctl/pedal/environment.h"
#include "ctl/speech/options.h"
#include "ctl/speech/output.h"
#include "ctl/speech/report.h"
#include "device/kzq7306.h"
#include "operations/sentences.h"
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

    /// Reports why the command ends before its work is done; returns the exit code.
    ExitCode explain(const Trouble& trouble, const std::string& sentence) const {
        return Report(output, options.json).stopped(trouble, sentence);
    }
    ExitCode explain(const Trouble& trouble) const { return explain(trouble, pedalSentence(trouble)); }
    ExitCode explain(ExitCode code, const std::string& sentence) const {
        return Report(output, options.json).stopped(code, nameOfEnd(std::nullopt, code), sentence);
    }
    /// Reports it and ends the program.
    template <class... Why>
    void fail(const Why&... why) const {
        finish(explain(why...));
    }
};

/// One command. All members are called on the main thread, and none of them waits for the pedal.
class Command : Fixed {
  public:
    virtual ~Command() = default;

    /// Reports what stands in the way before the pedal is touched, if anything does.
    virtual std::optional<ExitCode> obstructed() { return std::nullopt; }
    /// Begins, and answers true, if the command is one that needs no pedal.
    virtual bool withoutPedal() { return false; }
    /// The pedal is there; called with the device lock held, at most once unless the command watches.
    virtual void connected(const std::shared_ptr<KZQ7306>& looper) = 0;
    virtual void disconnected() = 0;
    virtual void changed(const Status& status) { static_cast<void>(status); }
    /// Whether stopping now would do harm. Meanwhile `cancel` may come again and again, and the program goes
    /// on.
    virtual bool mustFinish() const { return false; }
    /// The user wants to stop: ends the program soon. Otherwise called at most once.
    virtual void cancel() = 0;
};

}  // namespace kzq::ctl
