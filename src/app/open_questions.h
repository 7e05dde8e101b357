#pragma once

#include <utility>
#include <vector>

#include "platform/executor.h"
#include "platform/fixed.h"

namespace kzq {

/// Questions about what the window shows, which therefore stays as it is until they are answered. Main
/// thread.
class OpenQuestions : Fixed {
  public:
    /// `executor` outlives it.
    explicit OpenQuestions(Executor& executor) : executor_(executor) {}

    /// As long as the question is open.
    class Question : Fixed {
      public:
        explicit Question(OpenQuestions& all) : all_(all) { ++all_.open_; }
        ~Question() {
            if (--all_.open_ == 0) {
                for (auto& task : std::exchange(all_.afterwards_, {})) {
                    all_.executor_.main(std::move(task));
                }
            }
        }

      private:
        OpenQuestions& all_;
    };

    /// Does it now, or after the answer.
    void thenDo(Executor::Task task) {
        if (open_ == 0) {
            task();
        } else {
            afterwards_.push_back(std::move(task));
        }
    }

  private:
    Executor& executor_;
    unsigned open_ = 0;
    std::vector<Executor::Task> afterwards_;
};

}  // namespace kzq
