#pragma once

#include <cstdint>

namespace kzq {

struct AppParts;
enum class Copies : std::uint8_t;

/// The press of "Export": what is staged goes into the pedal. Main thread.
void beginExport(AppParts& parts, Copies copies);

}  // namespace kzq
