#include "ctl/progress_line.h"

#include "ctl/timing.h"

namespace kzq::ctl {

ProgressLine::ProgressLine(Executor& executor, Output& output, bool shown, std::uint64_t total)
    : executor_(executor),
      output_(output),
      shown_(shown && output.terminal()),
      meter_(total, executor.now()) {}

void ProgressLine::begin(const std::string& what) {
    const std::lock_guard guard(mutex_);
    before_ += moved_;
    moved_ = 0;
    what_ = what;
    written_ = executor_.now();  // a speed needs a while to mean something
}

void ProgressLine::update(std::uint64_t bytes) {
    const std::lock_guard guard(mutex_);
    moved_ = bytes;
    if (!shown_) {
        return;
    }
    const auto now = executor_.now();
    if (now - written_ < progressPeriod) {
        return;
    }
    written_ = now;
    meter_.update(before_ + moved_, now);
    output_.progress(what_ + ": " + meter_.text());
}

void ProgressLine::end() {
    output_.endProgress();
}

}  // namespace kzq::ctl
