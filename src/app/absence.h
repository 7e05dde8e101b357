#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "device/finding.h"
#include "platform/executor.h"

namespace kzq {

class MainWindow;

/// Finds out why no pedal is connected, and says who has it, while the window says so: at once, and again
/// every few seconds, since the user is likely to try the remedy that is shown.
class Absence : public std::enable_shared_from_this<Absence> {
  public:
    /// Called in the background.
    using Diagnosis = std::function<std::vector<Finding>()>;

    /// Executor and window outlive it. `heldBy` is told which program has the pedal, as far as it is known;
    /// nothing once the pedal is here. Main thread.
    static std::shared_ptr<Absence> watch(Executor& executor, MainWindow& window, Diagnosis diagnosis,
                                          std::function<void(const std::string& holder)> heldBy);

  private:
    Absence(Executor& executor, MainWindow& window, Diagnosis diagnosis,
            std::function<void(const std::string&)> heldBy);
    void look(unsigned round);

    Executor& executor_;
    MainWindow& window_;
    const Diagnosis diagnosis_;
    const std::function<void(const std::string&)> heldBy_;
    unsigned round_ = 0;  ///< number of the absence; results of an earlier one are not shown
};

}  // namespace kzq
