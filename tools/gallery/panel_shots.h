#pragma once

#include "contact_sheet.h"

namespace kzq::gallery {

/// Progress, menu, About and the alerts.
Shots panels();
/// The windows of the firmware's and the program's own updates.
Shots updateWindows();

}  // namespace kzq::gallery
