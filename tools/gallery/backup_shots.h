#pragma once

#include "contact_sheet.h"

namespace kzq::gallery {

/// File > Back Up and File > Restore in all their states.
Shots backups();

}  // namespace kzq::gallery
