#pragma once

#include "app/select_again.h"
#include "app/teller.h"
#include "platform/trouble.h"

namespace kzq {

/// Of a rule of the system that is missing: shows the commands, has them run as root where the desktop can
/// ask for the password, looks again, and offers to go on with `loops`.
Remedy settingUp(AppParts& parts, const Trouble& trouble, const TypedNames& loops);

}  // namespace kzq
