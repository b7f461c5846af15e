#pragma once

namespace pallomir {

/// The cosine of an angle in turns, to 1e-9. The library's own differs in its last digit between platforms, but the
/// sample recording must not; results computed with + - * / and square roots are the same.
double CosTurns(double turns);
inline double SinTurns(double turns) {
  return CosTurns(turns - 0.25);
}

/// A smooth hill of height 1 at 0 that ends at -1 and 1: (1 - u^2)^2.
inline double Hill(double u) {
  const double rest = 1 - u * u;
  return rest > 0 ? rest * rest : 0;
}

}  // namespace pallomir
