#pragma once

namespace kzq {

/// Exposes the menu, its entries and the progress track to assistive technology. Calling it once is enough;
/// main thread.
void installAccessiblePanels();

}  // namespace kzq
