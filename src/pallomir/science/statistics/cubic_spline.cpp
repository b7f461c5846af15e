#include "pallomir/science/statistics/cubic_spline.h"

#include <algorithm>
#include <cmath>

namespace pallomir {

namespace {

/// The second derivatives at the nodes, 0 at both ends: the tridiagonal system with 1 4 1, solved by elimination.
std::vector<double> SecondDerivatives(std::span<const double> values) {
  const size_t n = values.size();
  std::vector<double> second(n), upper(n);
  for (size_t i = 1; i + 1 < n; ++i) {
    const double pivot = 4 - upper[i - 1];
    upper[i] = 1 / pivot;
    second[i] = (6 * (values[i - 1] - 2 * values[i] + values[i + 1]) - second[i - 1]) / pivot;
  }
  for (size_t i = n - 1; i-- > 1;) second[i] -= upper[i] * second[i + 1];
  return second;
}

/// The zeros of c1 + 2 c2 t + 3 c3 t^2 with 0 < t < 1, in ascending order.
std::vector<double> ExtremesOf(const std::array<double, 4>& piece) {
  const double a = 3 * piece[3], b = piece[2], c = piece[1];  // a t^2 + 2 b t + c
  const double discriminant = b * b - a * c;
  if (!(discriminant >= 0)) return {};
  const double q = -(b + std::copysign(std::sqrt(discriminant), b));
  std::vector<double> zeros;
  for (const double t : {q / a, c / q})
    if (t > 0 && t < 1) zeros.push_back(t);
  std::sort(zeros.begin(), zeros.end());
  return zeros;
}

double Evaluate(const std::array<double, 4>& piece, double t) {
  return piece[0] + t * (piece[1] + t * (piece[2] + t * piece[3]));
}

}  // namespace

CubicSpline::CubicSpline(std::span<const double> values) {
  const std::vector<double> second = SecondDerivatives(values);
  for (size_t i = 0; i + 1 < values.size(); ++i) {
    pieces_.push_back({values[i], values[i + 1] - values[i] - (2 * second[i] + second[i + 1]) / 6, second[i] / 2,
                       (second[i + 1] - second[i]) / 6});
    turns_.push_back({static_cast<double>(i), values[i]});
    for (const double t : ExtremesOf(pieces_.back()))
      turns_.push_back({static_cast<double>(i) + t, Evaluate(pieces_.back(), t)});
  }
  turns_.push_back({static_cast<double>(values.size() - 1), values.back()});
}

double CubicSpline::At(double x) const {
  const auto piece = std::min(static_cast<size_t>(x), pieces_.size() - 1);
  return Evaluate(pieces_[piece], x - static_cast<double>(piece));
}

CubicSpline::Point CubicSpline::Highest() const {
  return *std::max_element(turns_.begin(), turns_.end(), [](const Point& a, const Point& b) { return a.Y < b.Y; });
}

std::optional<CubicSpline::Point> CubicSpline::LowestAfter(double x) const {
  const auto begin = std::find_if(turns_.begin(), turns_.end(), [x](const Point& turn) { return turn.X > x; });
  if (begin == turns_.end()) return {};
  return *std::min_element(begin, turns_.end(), [](const Point& a, const Point& b) { return a.Y < b.Y; });
}

double CubicSpline::CrossingBetween(Point low, Point high, double y) const {
  double below = low.X, above = high.X;
  for (;;) {
    const double middle = below + (above - below) / 2;
    if (middle == below || middle == above) return middle;
    (At(middle) > y ? above : below) = middle;
  }
}

std::optional<double> CubicSpline::CrossingBefore(double x, double y) const {
  for (size_t i = turns_.size() - 1; i > 0; --i)
    if (turns_[i].X <= x && turns_[i - 1].Y <= y) return CrossingBetween(turns_[i - 1], turns_[i], y);
  return {};
}

std::optional<double> CubicSpline::CrossingAfter(double x, double y) const {
  for (size_t i = 0; i + 1 < turns_.size(); ++i)
    if (turns_[i].X >= x && turns_[i + 1].Y <= y) return CrossingBetween(turns_[i + 1], turns_[i], y);
  return {};
}

}  // namespace pallomir
