#pragma once

#include <QColor>
#include <QString>
#include <string_view>

#include "session/session.h"

// The session's values as the toolkit's.

namespace pallomir {

inline QColor ScreenColour(Colour colour) {
  return QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

inline QString FromText(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace pallomir
