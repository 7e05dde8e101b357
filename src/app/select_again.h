#pragma once

#include <QString>
#include <map>
#include <optional>

#include "loops/slot_number.h"

namespace kzq {

struct AppParts;

/// The names typed for loops, if any.
using TypedNames = std::map<SlotNumber, std::optional<QString>>;

TypedNames typedNames(const AppParts& parts);
/// Selects those that are still on the pedal, and gives them their names back. False if none is.
bool selectAgain(AppParts& parts, const TypedNames& loops);

}  // namespace kzq
