#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "ctl/command.h"
#include "ctl/import_report.h"
#include "ctl/patience.h"
#include "ctl/progress_meter.h"
#include "ctl/status_reading.h"

namespace kzq::ctl {

/// Copies loops into files. The link's callbacks come on its own thread and write the files there; everything
/// else is the main thread's.
class ImportCommand : public Command, public std::enable_shared_from_this<ImportCommand> {
  public:
    explicit ImportCommand(Context context);

    std::optional<Explanation> obstacle() override;
    void connected(const std::shared_ptr<KZQ7306>& looper) override;
    void disconnected() override;
    void cancel() override;

  private:
    struct Outcome;

    void choose(const StatusReading& reading);
    void begin(const Loops& loops);
    void accepted(bool yes, Failure failure);
    void arrived(const Outcome& outcome);
    void completed();
    void silent();
    void endBatch();
    void conclude();
    void concludeWithoutPedal();
    void showProgress();

    // On the link's thread.
    Outcome save(const std::optional<std::vector<std::uint8_t>>& file, std::uint8_t slot);

    Context context_;
    ImportReport report_;
    std::shared_ptr<KZQ7306> looper_;
    std::shared_ptr<Patience> patience_;
    std::optional<ProgressMeter> meter_;
    std::vector<std::uint8_t> slots_;
    ImportSummary summary_;
    bool batch_ = false;   ///< the link was asked to read
    bool ending_ = false;  ///< the batch was told to stop early
    bool lost_ = false;    ///< the pedal no longer answers
    bool concluded_ = false;
    bool folderMade_ = false;  ///< the link's thread only
    std::atomic<std::uint32_t> received_ = 0;
    std::atomic<std::uint8_t> current_ = 0;  ///< the slot being read
};

}  // namespace kzq::ctl
