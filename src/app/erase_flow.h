#pragma once

namespace kzq {

struct AppParts;

/// The press of "Erase": empties the slots that are selected. Main thread.
void beginErase(AppParts& parts);

}  // namespace kzq
