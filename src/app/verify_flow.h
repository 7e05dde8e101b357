#pragma once

#include <QUrl>
#include <map>
#include <vector>

#include "operations/outcome.h"

namespace kzq {

struct AppParts;

/// Reads back the loops that an export has written, and says whether they are the same. The window stays
/// free, for the pedal it is an operation like any other. `files` are the user's own; `pedal` is the one that
/// was written to, see LoopModel. Main thread.
void beginVerify(AppParts& parts, const std::vector<SlotOutcome>& written,
                 const std::map<SlotNumber, QUrl>& files, unsigned pedal);

}  // namespace kzq
