#pragma once

#include <functional>
#include <memory>

namespace kzq {

class KZQ7306;

/// How one gets hold of the device link: nothing may be there now, and something later. Any thread.
using Link = std::function<std::shared_ptr<KZQ7306>()>;

}  // namespace kzq
