#pragma once

namespace kzq {

class Slot;

/// From now on the row's delegate hears of it when the left button goes down on its views and the pointer
/// then moves 8 px of 100 %: once for each press, if there is a loop. The rest of that press no longer
/// reaches the views, so it is no click. With less movement, everything is as without this.
void watchForDrag(Slot& row);

}  // namespace kzq
