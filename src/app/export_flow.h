#pragma once

namespace kzq {

struct AppParts;

/// The press of "Export": what is staged goes into the pedal. Main thread.
void beginExport(AppParts& parts);

}  // namespace kzq
