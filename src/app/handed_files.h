#pragma once

#include <QList>
#include <QUrl>

#include "platform/fixed.h"

namespace kzq {

class LoopModel;
class Staging;
class Teller;

/// Files that the program was given without a row, as on its command line. Each goes to the next row that has
/// neither a loop nor a file, as if it had been dropped there; which rows those are is known only with a
/// pedal. Main thread.
class HandedFiles : Fixed {
  public:
    /// All outlive it.
    HandedFiles(const LoopModel& model, Staging& staging, Teller& teller)
        : model_(model), staging_(staging), teller_(teller) {}

    void add(const QList<QUrl>& files);
    /// The pedal's table may be known now.
    void place();

  private:
    const LoopModel& model_;
    Staging& staging_;
    Teller& teller_;
    QList<QUrl> waiting_;
};

}  // namespace kzq
