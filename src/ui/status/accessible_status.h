#pragma once

namespace kzq {

/// Makes assistive technology see what is spoken as a notification, and the outcomes as a list. Once is
/// enough.
void installAccessibleStatus();

}  // namespace kzq
