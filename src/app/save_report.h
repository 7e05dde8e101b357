#pragma once

namespace kzq {

struct AppParts;

/// Asks whether to save a report for troubleshooting, and where, and saves it. Says in the status line what
/// came of it. Main thread.
void saveReport(AppParts& parts);

}  // namespace kzq
