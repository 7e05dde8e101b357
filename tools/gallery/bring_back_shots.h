#pragma once

#include "contact_sheet.h"

namespace kzq::gallery {

/// Edit > Bring Back in all its states.
Shots bringBack();

}  // namespace kzq::gallery
