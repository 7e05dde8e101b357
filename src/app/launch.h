#pragma once

#include <memory>

namespace kzq {

class AppDelegate;
struct AppParts;

/// Makes panels and rows, connects them, starts the device link and shows the splash. Stops without a word if
/// the menu or a row cannot be made. Main thread.
void launch(const std::shared_ptr<AppDelegate>& controller, AppParts& parts);

}  // namespace kzq
