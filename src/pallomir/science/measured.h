#pragma once

#include "pallomir/science/times.h"

namespace pallomir {

/// A measured number, or why there is none.
struct Measured {
  double Value = kNotKnown;
  const char* Why = "not measured";  ///< a clause for the user: why Value is not known, or what limits it; often empty

  Measured() = default;
  Measured(double value, const char* why = "") : Value(value), Why(why) {}  // NOLINT(google-explicit-constructor)
  static Measured None(const char* why) { return {kNotKnown, why}; }
  bool Known() const { return !std::isnan(Value); }
};

}  // namespace pallomir
