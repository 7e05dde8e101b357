#pragma once

#include <QKeyEvent>

namespace kzq {

/// Whether it is P, or the key of P on a layout of other letters, such as Greek or Cyrillic ones. The toolkit
/// finds the Latin letter itself only with Ctrl.
inline bool isP(const QKeyEvent& key) {
    constexpr quint32 scanCode = 33;  // X11's and Wayland's: KEY_P of the kernel and 8
    const bool otherLetter = key.key() > 0xFF && key.key() < Qt::Key_Escape;
    return key.key() == Qt::Key_P || (otherLetter && key.nativeScanCode() == scanCode);
}

}  // namespace kzq
