#pragma once

#include <algorithm>
#include <string_view>

namespace pallomir {

/// True if two ASCII texts are equal ignoring case, in any locale.
inline bool SameButForCase(std::string_view a, std::string_view b) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [&](char x, char y) { return lower(x) == lower(y); });
}

}  // namespace pallomir
