#pragma once

#include "contact_sheet.h"

namespace kzq::gallery {

/// The main window as it looks during use.
Shots mainWindows();
/// The same at sizes whose edges fall between pixels.
Shots windowSizes();

}  // namespace kzq::gallery
