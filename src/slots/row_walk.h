#pragma once

#include <cstddef>
#include <optional>
#include <vector>

namespace kzq {

/// Where a key leads in a list of rows that stands in two columns of ten. No Qt.
enum class RowStep { up, down, home, end, pageUp, pageDown, beside };

/// Which rows can be used; the others are passed over. Row 0 is slot 1.
using UsableRows = std::vector<bool>;

/// The row that `step` leads to from row `at`; nothing if there is none. Up and down go through all rows; a
/// page is a column, then the other one; beside is the nearest row of the other column.
std::optional<std::size_t> rowBehind(RowStep step, std::size_t at, const UsableRows& usable);

}  // namespace kzq
