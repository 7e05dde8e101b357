#pragma once

#include <QFont>
#include <optional>

namespace kzq {

enum class FiraWeight { light, regular, medium };

/// Adds the program's fonts to the application's; once is enough. Main thread, after the application object.
void registerFonts();

/// Fira Sans, `pixels` high; nothing when the family and style are not really there, where Qt would take
/// another font without a word.
std::optional<QFont> firaSans(FiraWeight weight, int pixels);

/// The font of everything live: Fira Sans Regular, or the desktop's font at the same size where it is
/// missing.
QFont textFont(int pixels = 13);

}  // namespace kzq
