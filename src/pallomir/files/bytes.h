#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace pallomir {

/// Reads a little-endian T from `bytes`, at any alignment.
template <class T>
T LoadLittleEndian(const unsigned char* bytes) {
  std::array<unsigned char, sizeof(T)> copy;
  std::memcpy(copy.data(), bytes, sizeof(T));
  if constexpr (std::endian::native == std::endian::big) std::reverse(copy.begin(), copy.end());
  return std::bit_cast<T>(copy);
}

/// Writes `value` little-endian to `bytes`, at any alignment.
template <class T>
void StoreLittleEndian(unsigned char* bytes, T value) {
  std::memcpy(bytes, &value, sizeof(T));
  if constexpr (std::endian::native == std::endian::big) std::reverse(bytes, bytes + sizeof(T));
}

}  // namespace pallomir
