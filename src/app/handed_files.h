#pragma once

#include <QList>
#include <QUrl>
#include <string>
#include <vector>

#include "platform/fixed.h"

namespace kzq {

class LoopModel;
class Staging;
class Teller;
class UnusedFiles;

/// A file that goes to no row.
struct LeftOut {
    std::string name;
    std::string reason;  ///< "not readable"; empty if there is no row for it
    QUrl file;
};

/// Files that the program was given without a row, as on its command line. Each goes to the next row that has
/// neither a loop nor a file; which rows those are is known only with a pedal. Main thread.
class HandedFiles : Fixed {
  public:
    /// All outlive it.
    HandedFiles(const LoopModel& model, Staging& staging, Teller& teller, UnusedFiles& unused)
        : model_(model), staging_(staging), teller_(teller), unused_(unused) {}

    /// `leftOut` came with them, and is named together with those for which there is no row.
    void add(const QList<QUrl>& files, const std::vector<LeftOut>& leftOut = {});
    /// The pedal's table may be known now.
    void place();

  private:
    const LoopModel& model_;
    Staging& staging_;
    Teller& teller_;
    UnusedFiles& unused_;
    QList<QUrl> waiting_;
    std::vector<LeftOut> leftOut_;
};

}  // namespace kzq
