#pragma once

#include <memory>

#include "ui/panels/about_window.h"
#include "ui/panels/product.h"

namespace kzq {

/// Shows the window of the About panel, which becomes the splash, before the rest of the program is made, and
/// returns when it has been painted. What the user does meanwhile waits. Null where windows may start at
/// another size than 100 %, as only the main window knows at which. Main thread.
std::shared_ptr<AboutWindow> showSplash(const Product& product);

}  // namespace kzq
