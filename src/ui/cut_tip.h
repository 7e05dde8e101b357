#pragma once

#include <QFont>
#include <QString>
#include <QWidget>

class QHelpEvent;

namespace kzq {

/// If `whole` takes more than `room` in `type`, both of 100 %, it is shown as a tool tip, in plain text.
/// Returns whether it is.
bool showIfCut(QWidget& at, const QHelpEvent& event, const QString& whole, const QFont& type, double room);

}  // namespace kzq
