#pragma once

#include <memory>

#include "audio/peaks.h"
#include "contact_sheet.h"

namespace kzq::gallery {

/// Of plucked notes, as far as `share` (0 to 1) of them is known.
std::shared_ptr<const Peaks> somePeaks(double share = 1);

/// Rows of loops that are heard, arrive and play, under the pointer and with the focus.
Shots listening();
/// Rows of files, and how they are compared with what they would replace.
Shots comparing();

}  // namespace kzq::gallery
