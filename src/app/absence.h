#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/executor.h"

namespace kzq {

class MainWindow;

/// Finds out why no pedal is connected while the window says so: at once, and again every few seconds, since
/// the user is likely to try the remedy that is shown.
class Absence : public std::enable_shared_from_this<Absence> {
  public:
    /// The obstacle and the command that fixes it, in one line; empty if only the pedal is missing. Called in
    /// the background.
    using Diagnosis = std::function<std::string()>;

    /// Executor and window outlive it. Main thread.
    static std::shared_ptr<Absence> watch(Executor& executor, MainWindow& window, Diagnosis diagnosis);

  private:
    Absence(Executor& executor, MainWindow& window, Diagnosis diagnosis);
    void look(unsigned round);

    Executor& executor_;
    MainWindow& window_;
    const Diagnosis diagnosis_;
    unsigned round_ = 0;  ///< number of the absence; results of an earlier one are not shown
};

}  // namespace kzq
