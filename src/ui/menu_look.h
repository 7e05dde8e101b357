#pragma once

#include <QString>

class QMenu;

namespace kzq {

/// How menus look, as a style sheet at the size of the screen.
QString menuLook();
/// For a menu that belongs to no bar: look and font.
void dressMenu(QMenu& menu);

}  // namespace kzq
