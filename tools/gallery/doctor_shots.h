#pragma once

#include "contact_sheet.h"

namespace kzq::gallery {

/// Help > Doctor: while it looks, and with what it finds.
Shots doctor();

}  // namespace kzq::gallery
