#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

#include "ctl/speech/exit_codes.h"
#include "ctl/speech/output.h"
#include "loops/slot_number.h"

namespace kzq::ctl {

/// Reports what a command does: to people in sentences, to programs as one JSON object per line, each with an
/// "event". Any thread.
class Report {
  public:
    /// `output` outlives it.
    Report(Output& output, bool json) : output_(output), json_(json) {}

    bool json() const { return json_; }
    /// One thing in both forms; an empty sentence is for programs only.
    void tell(const char* event, nlohmann::json details, const std::string& sentence);
    /// A loop failed; both kinds of reader also find the sentence on standard error.
    void failed(SlotNumber slot, std::string_view reason, const std::string& sentence);
    /// The end of a command that has nothing else to report: returns its exit code.
    ExitCode stopped(const Trouble& trouble, const std::string& sentence);
    ExitCode stopped(ExitCode code, std::string_view reason, const std::string& sentence);
    /// The end, which `sentence` explains if there was one before the last loop; `summary` for people.
    ExitCode finished(const Outcome& outcome, const std::string& sentence, const std::string& summary);

  private:
    Output& output_;
    bool json_;
};

}  // namespace kzq::ctl
