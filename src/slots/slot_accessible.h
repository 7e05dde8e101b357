#pragma once

namespace kzq {

/// Tells assistive programs what a row's name field is: text, and on an import row something that can be
/// pressed to rename. Once is enough; main thread.
void installSlotAccessibility();

}  // namespace kzq
