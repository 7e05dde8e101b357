#pragma once

#include <QByteArray>

namespace kzq {

/// Passes on the desktop's token by which a window of ours may come forward: the toolkit uses it when a
/// window asks to be active.
void letComeForward(const QByteArray& token);

}  // namespace kzq
