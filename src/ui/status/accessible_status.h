#pragma once

namespace kzq {

/// Makes assistive technology see the status line as a notification, and the outcomes as a list. Once is
/// enough.
void installAccessibleStatus();

}  // namespace kzq
