#pragma once

#include <QColor>
#include <QString>
#include <cmath>
#include <string_view>

#include "pallomir/files/platform.h"
#include "pallomir/session/session.h"

// The session's values as the toolkit's.

namespace pallomir {

inline QColor ScreenColour(Colour colour) {
  return QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

/// For the eye: bytes that are no UTF-8 show as a mark, so a path does not come back from it.
inline QString FromText(std::string_view text) {
  return QString::fromStdString(ReadablePath(text));
}

/// What a progress bar of 0 to 32767 shows for a share of the work.
inline int BarValue(double share) {
  return static_cast<int>(std::lrint(32766 * share));
}

}  // namespace pallomir
