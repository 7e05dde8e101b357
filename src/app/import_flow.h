#pragma once

namespace kzq {

struct AppParts;

/// The press of "Import": loops go from the pedal into files. Main thread.
void beginImport(AppParts& parts);

}  // namespace kzq
