#pragma once

#include "contact_sheet.h"

namespace kzq::gallery {

/// Every button in every state.
Shots buttons();

}  // namespace kzq::gallery
