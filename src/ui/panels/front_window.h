#pragma once

class QWidget;

namespace kzq {

/// The window that a dialog has to stand over so that nothing of ours can cover it: the dialog that is open
/// already, else a window that floats, the one with the keyboard first, else `usual`. A dialog with another
/// parent can end up behind a floating window, and be waited for without being seen. Main thread.
QWidget* frontWindow(QWidget* usual);

}  // namespace kzq
