#pragma once

#include <memory>

#include "app/teller.h"
#include "app/transfer_run.h"
#include "operations/outcome.h"

namespace kzq {

/// How a transfer of several batches shows in the progress panel and the status line: "Comparing loop 5…".
Events eventsOf(const std::shared_ptr<TransferRun>& progress, const Teller::Saying& say);

}  // namespace kzq
