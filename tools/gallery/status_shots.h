#pragma once

#include "contact_sheet.h"

namespace kzq::gallery {

/// The status line in its states, and the list behind it.
Shots statusLines();

}  // namespace kzq::gallery
