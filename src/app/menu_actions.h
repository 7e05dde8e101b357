#pragma once

#include <memory>

#include "app/menu_bar.h"

namespace kzq {

class AppDelegate;
struct AppParts;

/// What the menu bar does to the window. The entries outlive both, and do nothing then.
MenuBarActions menuActions(const std::shared_ptr<AppDelegate>& owner, AppParts& parts);

}  // namespace kzq
