#pragma once

#include <QFont>
#include <optional>

namespace kzq {

enum class FiraWeight { light, regular, medium };

/// Adds the program's fonts to the application's; calling it once is enough. Main thread, after the
/// application object.
void registerFonts();

/// Fira Sans, `pixels` high; nothing if the family or style is missing, where Qt would silently
/// substitute another font.
std::optional<QFont> firaSans(FiraWeight weight, int pixels);

/// The font of all live text: Fira Sans Regular, or the desktop's font at the same size if it is missing.
QFont textFont(int pixels = 13);

/// Of the words on buttons and in pictures: Fira Sans Medium, or as that of live text if it is missing.
QFont wordFont(int pixels);

}  // namespace kzq
