#pragma once

#include "audio/conversion.h"

namespace kzq {

// Classifies the failures of a conversion and puts them into words.

/// The reason with its sentence; `detail` fills the sentence's placeholder, if it has one.
Conversion::Failure conversionFailure(ConversionFailure reason, const std::string& detail = {});

/// What an errno value means for the source, or for the output.
Conversion::Failure sourceFailure(int error);
Conversion::Failure outputFailure(int error);

/// The meaning of a child's failure. `otherwise` is the reason if it ran normally and merely rejected the
/// source.
Conversion::Failure childFailure(const ChildEnd& end, const std::string& program,
                                 ConversionFailure otherwise);

/// `text` as one line, whatever a file name or a decoder's message contains.
std::string asLogLine(std::string text);

}  // namespace kzq
