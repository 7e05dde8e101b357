#include "ctl/speech/progress_meter.h"

#include <algorithm>
#include <cmath>

#include "ctl/speech/format.h"

namespace kzq::ctl {
namespace {

constexpr auto window = std::chrono::seconds(5);

}  // namespace

ProgressMeter::ProgressMeter(std::uint64_t total, Executor::TimePoint start)
    : total_(total), samples_{{start, 0}} {}

void ProgressMeter::update(std::uint64_t bytes, Executor::TimePoint now) {
    samples_.push_back({now, std::min(bytes, total_)});
    while (samples_.size() > 2 && now - samples_[1].time >= window) {
        samples_.pop_front();
    }
}

std::string ProgressMeter::text() const {
    constexpr std::uint64_t whole = 100;
    const auto& first = samples_.front();
    const auto& last = samples_.back();
    std::string text = std::to_string(total_ == 0 ? whole : last.bytes * whole / total_) + " %";
    const double seconds = std::chrono::duration<double>(last.time - first.time).count();
    if (seconds <= 0 || last.bytes <= first.bytes) {
        return text;
    }
    const double speed = static_cast<double>(last.bytes - first.bytes) / seconds;
    const double left = std::ceil(static_cast<double>(total_ - last.bytes) / speed);
    text += ", " + sizeText(static_cast<std::uint64_t>(speed)) + "/s";
    return text + ", " + clockText(static_cast<std::uint64_t>(left)) + " left";
}

}  // namespace kzq::ctl
