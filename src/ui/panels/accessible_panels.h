#pragma once

namespace kzq {

/// Lets assistive technology see the menu, its entries and the progress track as what they are. Once is
/// enough; main thread.
void installAccessiblePanels();

}  // namespace kzq
