#pragma once

#include <array>
#include <optional>
#include <span>
#include <vector>

namespace pallomir {

/// The natural cubic spline through values at x = 0, 1, 2, ...
class CubicSpline {
 public:
  /// A point of the curve.
  struct Point {
    double X, Y;
  };

  /// `values` has at least two.
  explicit CubicSpline(std::span<const double> values);

  double At(double x) const;
  /// The first highest point of the curve.
  Point Highest() const;
  /// The first lowest point beyond `x`; empty at the end of the curve.
  std::optional<Point> LowestAfter(double x) const;
  /// Where the curve first falls to `y` on the way from `x`, at which it is above, towards smaller or larger x.
  std::optional<double> CrossingBefore(double x, double y) const;
  std::optional<double> CrossingAfter(double x, double y) const;

 private:
  /// The curve from x = i to i + 1 is c0 + c1 t + c2 t^2 + c3 t^3 with t = x - i.
  std::vector<std::array<double, 4>> pieces_;
  /// Nodes and the extremes between them, from left to right; the curve is monotone from one to the next.
  std::vector<Point> turns_;

  double CrossingBetween(Point low, Point high, double y) const;
};

}  // namespace pallomir
