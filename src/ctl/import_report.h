#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

#include "ctl/output.h"
#include "ctl/sentences.h"

namespace kzq::ctl {

/// How an import went, for its exit code and its last words.
struct ImportSummary {
    std::size_t wanted = 0;
    std::size_t saved = 0;
    std::vector<Explanation> failures;  ///< of single loops, in order
    bool cancelled = false;
    bool fileError = false;
    bool unplugged = false;
    bool silent = false;

    /// What ended the import before its last loop, if anything did; its sentence is empty when it has been
    /// said.
    std::optional<Explanation> end() const;
    ExitCode exitCode() const;
};

/// Tells of an import, for people or one JSON object a line.
class ImportReport {
  public:
    ImportReport(Output& output, bool json) : output_(output), json_(json) {}

    void saved(unsigned slot, const std::filesystem::path& file, std::uint64_t bytes);
    void failed(unsigned slot, Failure reason);
    void notWritten(unsigned slot, const std::filesystem::path& folder, int error);
    void finished(const ImportSummary& summary);

  private:
    void failure(unsigned slot, std::string_view reason, const std::string& sentence);

    Output& output_;
    bool json_;
};

}  // namespace kzq::ctl
