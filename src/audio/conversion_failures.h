#pragma once

#include "audio/conversion.h"

namespace kzq {

// How a conversion's failures are told apart, and put into words.

/// The reason with its sentence; `detail` is what the sentence leaves room for, if it does.
Conversion::Failure conversionFailure(ConversionFailure reason, const std::string& detail = {});

/// What an errno value means for the source, or for the output.
Conversion::Failure sourceFailure(int error);
Conversion::Failure outputFailure(int error);

/// What a child that did not succeed means. `otherwise` is the reason when it went its usual way and merely
/// found fault with the source.
Conversion::Failure childFailure(const ChildEnd& end, const std::string& program,
                                 ConversionFailure otherwise);

/// One line, whatever a file name or a decoder has to say.
std::string asLogLine(std::string text);

}  // namespace kzq
