#pragma once

#include <mutex>
#include <ostream>
#include <string>
#include <string_view>

namespace kzq::ctl {

/// Everything the program writes, line by line; on a terminal also one progress line, which is rewritten in
/// place and stays the last. Control bytes, which a file name may have, become question marks. Any thread.
class Output {
  public:
    /// The streams outlive it. `terminal`: whether `out` is one.
    Output(std::ostream& out, std::ostream& err, bool terminal) : out_(out), err_(err), terminal_(terminal) {}

    bool terminal() const { return terminal_; }
    void line(std::string_view text);
    /// For programs: as it is.
    void json(std::string_view text);
    /// A sentence on standard error, after the program's name.
    void error(std::string_view sentence);
    void log(std::string_view text);
    /// Nothing is shown without a terminal.
    void progress(std::string_view text);
    void endProgress();
    /// Whether standard output has taken everything so far.
    bool flush();

  private:
    void write(std::ostream& stream, std::string_view prefix, std::string_view text);
    void erase();

    std::mutex mutex_;
    std::ostream& out_;
    std::ostream& err_;
    bool terminal_;
    std::string progress_;
};

}  // namespace kzq::ctl
