#pragma once

class QWidget;

namespace kzq {

/// The parent for a dialog, so that none of our windows can cover it: the dialog already open, else a
/// floating window, preferably the one with the keyboard focus, else `usual`. With another parent, a dialog
/// can end up behind a floating window and block the program unseen. Main thread.
QWidget* frontWindow(QWidget* usual);

}  // namespace kzq
