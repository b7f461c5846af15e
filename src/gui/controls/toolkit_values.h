#pragma once

#include <QColor>
#include <QString>
#include <cmath>
#include <string_view>

#include "pallomir/files/platform.h"
#include "pallomir/session/session.h"

// Conversions of session values to Qt's types.

namespace pallomir {

inline QColor ScreenColour(Colour colour) {
  const auto level = [colour](int shift) { return static_cast<int>((colour >> shift) & 0xFF); };
  return {level(0), level(8), level(16)};
}

/// For display only: bytes that are not UTF-8 are shown as a replacement, so a path cannot be recovered from it.
inline QString FromText(std::string_view text) {
  return QString::fromStdString(ReadablePath(text));
}

/// The value of a progress bar from 0 to 32767 for a share of the work.
inline int BarValue(double share) {
  return static_cast<int>(std::lrint(32766 * share));
}

}  // namespace pallomir
