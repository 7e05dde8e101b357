#pragma once

#include <QString>
#include <map>
#include <optional>

#include "loops/loop.h"
#include "loops/slot_number.h"

namespace kzq {

struct AppParts;

/// Loops as they were when they were chosen, with the names typed for them, if any.
struct TypedName {
    Loop loop;
    std::optional<QString> name;
    unsigned pedal = 0;  ///< see LoopModel
};
using TypedNames = std::map<SlotNumber, TypedName>;

TypedNames typedNames(const AppParts& parts);
/// Selects those that are still there, and gives them their names back. False if none is. After a replug only
/// the same loops are: it may be another pedal.
bool selectAgain(AppParts& parts, const TypedNames& loops);

}  // namespace kzq
