#pragma once

#include "contact_sheet.h"

namespace kzq::gallery {

/// What is shown of files that are held over the rows, and of loops on their way out.
Shots carrying();

}  // namespace kzq::gallery
