#pragma once

#include <cstdint>

namespace kzq {

struct AppParts;
enum class Copies : std::uint8_t;

/// The press of "Erase": empties the slots that are selected. Main thread.
void beginErase(AppParts& parts, Copies copies);

}  // namespace kzq
