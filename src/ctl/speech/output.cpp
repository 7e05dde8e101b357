#include "ctl/speech/output.h"

#include <algorithm>
#include <utility>

namespace kzq::ctl {
namespace {

constexpr std::string_view eraseLine = "\r\x1b[K";

/// A terminal would obey them.
std::string withoutControls(std::string_view text) {
    std::string result(text);
    std::replace_if(
        result.begin(), result.end(),
        [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; }, '?');
    return result;
}

}  // namespace

void Output::line(std::string_view text) {
    write(out_, "", withoutControls(text));
}

void Output::json(std::string_view text) {
    write(out_, "", text);
}

void Output::error(std::string_view sentence) {
    write(err_, "kzq7306ctl: ", withoutControls(sentence));
}

void Output::log(std::string_view text) {
    write(err_, "", withoutControls(text));
}

void Output::progress(std::string_view text) {
    auto shown = withoutControls(text);
    const std::lock_guard guard(mutex_);
    if (!terminal_ || shown == progress_) {
        return;
    }
    erase();
    progress_ = std::move(shown);
    out_ << progress_ << std::flush;
}

void Output::endProgress() {
    const std::lock_guard guard(mutex_);
    erase();
    progress_.clear();
    out_ << std::flush;
}

bool Output::flush() {
    const std::lock_guard guard(mutex_);
    out_ << std::flush;
    err_ << std::flush;
    return out_.good();
}

/// A whole line at once, so that a reader at the other end of a pipe never sees half of one.
void Output::write(std::ostream& stream, std::string_view prefix, std::string_view text) {
    const std::lock_guard guard(mutex_);
    erase();
    out_ << std::flush;
    std::string whole(prefix);
    whole += text;
    whole += '\n';
    stream << whole << std::flush;
    if (!progress_.empty()) {
        out_ << progress_ << std::flush;
    }
}

void Output::erase() {
    if (!progress_.empty()) {
        out_ << eraseLine;
    }
}

}  // namespace kzq::ctl
