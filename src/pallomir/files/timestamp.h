#pragma once

namespace pallomir {

/// The stamp of a record in microseconds: 8 bytes, little-endian unsigned, converted to double (values above 2^53 lose
/// their low bits).
inline double TimestampFromBytes(const unsigned char* bytes) {
  double value = 0, weight = 1;
  for (int k = 0; k < 8; ++k, weight *= 256) value += bytes[k] * weight;
  return value;
}

}  // namespace pallomir
