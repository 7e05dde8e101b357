#pragma once

#include <ostream>

#include "device/recorder/recording.h"

namespace kzq::recorder {

/// Writes what a recording says of the wire as a pcapng file for packet analysers, in the form of Linux's
/// usbmon: each request and each transfer as its submission and its end, in the recording's times from 1970
/// on. A call that never ended has only its submission; what is not on the wire (opening, claiming, arrivals)
/// is left out.
///
/// Without audio, the data of bulk transfers is left out and only its length told. Outgoing data of more than
/// 64 bytes is not in a recording, so only its length is told in either case.
void writePcapng(std::ostream& out, const Recording& recording, bool audio);

}  // namespace kzq::recorder
