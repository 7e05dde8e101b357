#pragma once

namespace kzq {

/// Exposes a row's name field to assistive technology: as text, and on an import row as something that can be
/// pressed to rename. Calling it once is enough; main thread.
void installSlotAccessibility();

}  // namespace kzq
