#pragma once

#include <QList>
#include <QUrl>

#include "platform/fixed.h"

namespace kzq {

class LoopModel;
class Staging;
class Teller;
class UnusedFiles;

/// Files that the program was given without a row, as on its command line. Each goes to the next row that has
/// neither a loop nor a file, as if it had been dropped there; which rows those are is known only with a
/// pedal. Main thread.
class HandedFiles : Fixed {
  public:
    /// All outlive it.
    HandedFiles(const LoopModel& model, Staging& staging, Teller& teller, UnusedFiles& unused)
        : model_(model), staging_(staging), teller_(teller), unused_(unused) {}

    void add(const QList<QUrl>& files);
    /// The pedal's table may be known now.
    void place();

  private:
    const LoopModel& model_;
    Staging& staging_;
    Teller& teller_;
    UnusedFiles& unused_;
    QList<QUrl> waiting_;
};

}  // namespace kzq
