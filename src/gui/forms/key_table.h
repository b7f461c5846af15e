#pragma once

#include <span>

namespace pallomir {

/// What a key or gesture does, as the guide's table "Keys and gestures" says it: names of controls are between "**".
struct KeyRow {
  /// The window or control; empty if it is that of the row above.
  const char* In;
  const char* Keys;
  const char* Effect;
};

/// All keys and gestures. Whoever adds one adds it to the guide as well.
std::span<const KeyRow> KeyTable();

}  // namespace pallomir
