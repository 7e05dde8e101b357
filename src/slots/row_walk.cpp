#include "slots/row_walk.h"

#include <algorithm>

namespace kzq {

namespace {

constexpr std::ptrdiff_t columnLength = 10;

using Row = std::optional<std::size_t>;

/// Rows from `begin` to before `end`, as far as they are there.
struct Stretch {
    Stretch(const UsableRows& rows, std::ptrdiff_t from, std::ptrdiff_t to)
        : usable(rows),
          begin(std::clamp<std::ptrdiff_t>(from, 0, std::ssize(rows))),
          end(std::clamp<std::ptrdiff_t>(to, begin, std::ssize(rows))) {}

    Row first() const {
        const auto stop = usable.begin() + end;
        const auto found = std::find(usable.begin() + begin, stop, true);
        return found == stop ? Row() : Row(found - usable.begin());
    }
    Row last() const {
        const auto stop = std::make_reverse_iterator(usable.begin() + begin);
        const auto found = std::find(std::make_reverse_iterator(usable.begin() + end), stop, true);
        return found == stop ? Row() : Row(found.base() - usable.begin() - 1);
    }

    const UsableRows& usable;
    std::ptrdiff_t begin;
    std::ptrdiff_t end;
};

Row pageUp(std::ptrdiff_t at, const UsableRows& usable) {
    const auto column = at - at % columnLength;
    const auto here = Stretch(usable, column, at).first();
    return here ? here : Stretch(usable, column - columnLength, column).first();
}

Row pageDown(std::ptrdiff_t at, const UsableRows& usable) {
    const auto next = at - at % columnLength + columnLength;
    const auto here = Stretch(usable, at + 1, next).last();
    return here ? here : Stretch(usable, next, next + columnLength).last();
}

Row beside(std::ptrdiff_t at, const UsableRows& usable) {
    const auto column = at < columnLength ? columnLength : 0;
    const auto level = column + at % columnLength;
    const auto above = Stretch(usable, column, level + 1).last();
    const auto below = Stretch(usable, level, column + columnLength).first();
    if (!above || !below) {
        return above ? above : below;
    }
    const auto up = level - static_cast<std::ptrdiff_t>(*above);
    return up <= static_cast<std::ptrdiff_t>(*below) - level ? above : below;
}

}  // namespace

Row rowBehind(RowStep step, std::size_t at, const UsableRows& usable) {
    const auto from = static_cast<std::ptrdiff_t>(at);
    switch (step) {
        case RowStep::up:
            return Stretch(usable, 0, from).last();
        case RowStep::down:
            return Stretch(usable, from + 1, std::ssize(usable)).first();
        case RowStep::home:
            return Stretch(usable, 0, std::ssize(usable)).first();
        case RowStep::end:
            return Stretch(usable, 0, std::ssize(usable)).last();
        case RowStep::pageUp:
            return pageUp(from, usable);
        case RowStep::pageDown:
            return pageDown(from, usable);
        case RowStep::beside:
            return beside(from, usable);
    }
    return std::nullopt;
}

}  // namespace kzq
