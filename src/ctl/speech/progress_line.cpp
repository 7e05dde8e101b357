#include "ctl/speech/progress_line.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "ctl/speech/json_output.h"
#include "ctl/speech/timing.h"

namespace kzq::ctl {

ProgressLine::ProgressLine(Executor& executor, Output& output, bool forPeople, std::uint64_t total)
    : executor_(executor),
      output_(output),
      forPeople_(forPeople),
      meter_(total, executor.now()),
      total_(total) {}

void ProgressLine::begin(SlotNumber slot, const char* action, const std::string& what) {
    const std::lock_guard guard(mutex_);
    before_ += moved_;
    moved_ = 0;
    slot_ = slot.number();
    action_ = action;
    what_ = what;
    written_ = executor_.now();  // a speed needs a while to mean something
}

void ProgressLine::begin(SlotNumber slot, Step step) {
    switch (step) {
        case Step::read:
            begin(slot, "read", loopName(slot));
            break;
        case Step::write:
            begin(slot, "write", loopName(slot) + ", writing");
            break;
        case Step::compare:
            begin(slot, "compare", loopName(slot) + ", checking");
            break;
    }
}

void ProgressLine::update(std::uint64_t bytes) {
    const std::lock_guard guard(mutex_);
    moved_ = bytes;
    if (forPeople_ && !output_.terminal()) {
        return;
    }
    const auto now = executor_.now();
    if (now - written_ < progressPeriod) {
        return;
    }
    written_ = now;
    if (!forPeople_) {
        printJson(output_, {{"event", "progress"},
                            {"slot", slot_},
                            {"action", action_},
                            {"transferredBytes", std::min(before_ + moved_, total_)},
                            {"totalBytes", total_}});
        return;
    }
    meter_.update(before_ + moved_, now);
    output_.progress(what_ + ": " + meter_.text());
}

void ProgressLine::end() {
    output_.endProgress();
}

}  // namespace kzq::ctl
