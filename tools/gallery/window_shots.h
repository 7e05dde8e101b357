#pragma once

#include "contact_sheet.h"

namespace kzq::gallery {

/// The main window as it looks during use.
Shots mainWindows();

}  // namespace kzq::gallery
