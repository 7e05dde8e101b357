#pragma once

#include <functional>
#include <tl/expected.hpp>
#include <type_traits>
#include <utility>

#include "platform/trouble.h"

namespace kzq {

/// A value, or the trouble that there is instead. It cannot be dropped unread. A function gives up with
/// `return Trouble{...};`.
template <class T>
class [[nodiscard]] Result : public tl::expected<T, Trouble> {
  public:
    using Base = tl::expected<T, Trouble>;
    using Base::Base;
    Result(Base base) : Base(std::move(base)) {}  ///< from what `map` gives
    Result(Trouble trouble) : Base(tl::unexpect, std::move(trouble)) {}

    /// What `next` makes of the value, itself a Result; or the trouble, if there is one.
    template <class Next>
    auto and_then(Next&& next) && {
        if constexpr (std::is_void_v<T>) {
            using Then = std::invoke_result_t<Next>;
            return *this ? std::invoke(std::forward<Next>(next)) : Then(std::move(this->error()));
        } else {
            using Then = std::invoke_result_t<Next, T>;
            return *this ? std::invoke(std::forward<Next>(next), std::move(**this))
                         : Then(std::move(this->error()));
        }
    }
};

}  // namespace kzq
