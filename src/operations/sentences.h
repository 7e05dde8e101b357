#pragma once

#include <string>

#include "platform/trouble.h"

namespace kzq {

// The only place that puts troubles into words for a user: what is, why, and what to do. Complete sentences.
// Any thread.

/// Of an audio file or its conversion.
std::string audioSentence(const Trouble& trouble);
/// The same, with the file's name: `name`, such as "standard input", or the quoted `where`.
std::string conversionSentence(const Trouble& trouble, const std::string& name = {});

/// Of a simulated pedal: its folder, its faults, its address.
std::string simulationSentence(const Trouble& trouble);

/// Why there is no recording of a session; why it ends.
std::string recordingSentence(const Trouble& trouble);
std::string recordingEndSentence(const Trouble& trouble);

}  // namespace kzq
