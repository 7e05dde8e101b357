#pragma once

#include <QList>
#include <QString>
#include <QUrl>

#include "app/bus/first_window.h"
#include "app/program/options.h"

namespace kzq {

/// The files on the command line, as seen from any folder.
QList<QUrl> filesOf(const ProgramOptions& options);

/// What the starts with such options have in common: the pedal, or the folder of a simulated one, which two
/// windows would both write to. Empty for a simulated pedal without a folder, which every window has to
/// itself.
QString nameOnBus(const ProgramOptions& options);

/// Whether there is a window already, which has taken over; the user is told.
bool isHandedOver(FirstWindow& first, const Start& start);

}  // namespace kzq
