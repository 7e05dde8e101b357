#pragma once

namespace kzq {

class Slot;

/// From now on the row knows whether the pointer or, by keyboard, the focus is in it, and has its keys: P
/// plays and stops, Shift+P compares. While the name is edited they are the editor's.
void watchTouch(Slot& row);

}  // namespace kzq
