#pragma once

#include "contact_sheet.h"

namespace kzq::gallery {

/// Every picture of the resources that is lower than 100 pixels, or every other one, drawn for the given
/// device ratio.
Shots smallPictures(double ratio);
Shots largePictures(double ratio);
/// The application's icon at the sizes desktops use.
Shots icons(double ratio);

}  // namespace kzq::gallery
