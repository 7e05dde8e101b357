#pragma once

namespace kzq {

/// What --self-check does: whether the program starts, with its pictures, its fonts and what HTTPS needs, but
/// without a pedal, a window, or any change to files. Says so in one line, as an update expects it; the
/// status to end with.
int runSelfCheck(int argc, char** argv, bool screen);

}  // namespace kzq
