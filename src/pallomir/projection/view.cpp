#include "pallomir/projection/view.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "pallomir/files/number_text.h"

namespace pallomir {

bool View::Drawable() const {
  // Pixels are computed in single precision, which must be able to represent the extents.
  const auto held = [](double extent) {
    return std::abs(extent) > 1e-37 && std::abs(extent) < std::numeric_limits<float>::max();
  };
  return held(Right - Left) && held(Bottom - Top) && Width > 1 && Height > 1;
}

View ViewOf(const Session& session, int width, int height) {
  return ViewOf(session, PairOnView(session), width, height);
}

View ViewOf(const Session& session, ParameterPair pair, int width, int height) {
  const auto [x, y] = pair;
  View view{
      session.AxisMinimum[x], session.AxisMaximum[x], session.AxisMaximum[y], session.AxisMinimum[y], width, height};
  if (y == kPosY) std::swap(view.Top, view.Bottom);
  return view;
}

/// With enough digits to tell a tick from its neighbours.
static std::string TickText(double value, double step) {
  const bool fine = std::abs(value) > 1e6 * step;
  return fine ? DoubleText(std::round(value / step) * step) : SingleText(static_cast<float>(value));
}

std::vector<Tick> AxisTicks(double from, double to, int count) {
  if (from > to) std::swap(from, to);
  std::vector<Tick> ticks;
  if (!(to > from) || !std::isfinite(to - from) || count < 1) return ticks;
  const double rough = (to - from) / count;
  const double power = std::pow(10.0, std::floor(std::log10(rough)));
  const double fraction = rough / power;
  const double step = power * (fraction < 1.5 ? 1 : fraction < 3.5 ? 2 : fraction < 7.5 ? 5 : 10);
  const double first = std::ceil(from / step);
  // If the range is too narrow for its precision, a step no longer changes the value.
  if (first * step + step == first * step) return ticks;
  for (double k = first; k * step <= to && ticks.size() < 100; ++k)
    ticks.push_back({k * step, TickText(k * step, step)});
  return ticks;
}

bool ZoomTo(Session& session, Vertex corner, Vertex opposite) {
  const auto [left, right] = std::minmax(corner.X, opposite.X);
  const auto [low, high] = std::minmax(corner.Y, opposite.Y);
  if (!(right > left) || !(high > low) || !std::isfinite(right - left) || !std::isfinite(high - low)) return false;
  session.AxisMinimum[session.XParameter] = left;
  session.AxisMaximum[session.XParameter] = right;
  session.AxisMinimum[session.YParameter] = low;
  session.AxisMaximum[session.YParameter] = high;
  return true;
}

}  // namespace pallomir
