#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/executor.h"

namespace kzq {

class MainWindow;

/// Finds out why no pedal is connected for as long as the window says so: at once, and again every few
/// seconds, since the remedy that is shown is likely to be tried.
class Absence : public std::enable_shared_from_this<Absence> {
  public:
    /// What is in the way and the command that mends it, in a line; empty when nothing but the pedal is
    /// missing. Called in the background.
    using Diagnosis = std::function<std::string()>;

    /// Executor and window outlive it. Main thread.
    static std::shared_ptr<Absence> watch(Executor& executor, MainWindow& window, Diagnosis diagnosis);

  private:
    Absence(Executor& executor, MainWindow& window, Diagnosis diagnosis);
    void look(unsigned round);

    Executor& executor_;
    MainWindow& window_;
    const Diagnosis diagnosis_;
    unsigned round_ = 0;  ///< an absence has one; what an earlier one found out is not shown
};

}  // namespace kzq
