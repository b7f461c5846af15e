#include "pallomir/projection/zoom_steps.h"

#include <cmath>

namespace pallomir {

namespace {

constexpr size_t kMostSteps = 200;

/// Lower and upper end along X, then along Y.
using Ranges = std::array<float, 4>;

Ranges RangesOf(const Session& session) {
  const int x = session.XParameter, y = session.YParameter;
  return {session.AxisMinimum[x], session.AxisMaximum[x], session.AxisMinimum[y], session.AxisMaximum[y]};
}

bool SetBoth(Session& session, const std::array<double, 4>& ends) {
  Ranges set{};
  for (size_t k = 0; k < ends.size(); ++k) set[k] = static_cast<float>(ends[k]);
  const auto drawable = [](float low, float high) { return high > low && std::isfinite(high - low); };
  if (!drawable(set[0], set[1]) || !drawable(set[2], set[3]) || set == RangesOf(session)) return false;
  session.AxisMinimum[session.XParameter] = set[0];
  session.AxisMaximum[session.XParameter] = set[1];
  session.AxisMinimum[session.YParameter] = set[2];
  session.AxisMaximum[session.YParameter] = set[3];
  return true;
}

}  // namespace

bool ZoomAbout(Session& session, Vertex at, double factor) {
  const int x = session.XParameter, y = session.YParameter;
  const auto scaled = [factor](double centre, double end) { return centre + (end - centre) * factor; };
  return SetBoth(session, {scaled(at.X, session.AxisMinimum[x]), scaled(at.X, session.AxisMaximum[x]),
                           scaled(at.Y, session.AxisMinimum[y]), scaled(at.Y, session.AxisMaximum[y])});
}

bool MoveView(Session& session, Vertex by) {
  const int x = session.XParameter, y = session.YParameter;
  return SetBoth(session, {double{session.AxisMinimum[x]} + by.X, double{session.AxisMaximum[x]} + by.X,
                           double{session.AxisMinimum[y]} + by.Y, double{session.AxisMaximum[y]} + by.Y});
}

void ZoomSteps::Keep(const Session& session) {
  std::vector<Ranges>& steps = steps_[{session.XParameter, session.YParameter}];
  const Ranges ranges = RangesOf(session);
  if (!steps.empty() && steps.back() == ranges) return;
  if (steps.size() == kMostSteps) steps.erase(steps.begin());
  steps.push_back(ranges);
}

bool ZoomSteps::Back(Session& session) {
  std::vector<Ranges>& steps = steps_[{session.XParameter, session.YParameter}];
  const Ranges now = RangesOf(session);
  while (!steps.empty()) {
    const Ranges ranges = steps.back();
    steps.pop_back();
    if (ranges != now) return SetBoth(session, {ranges[0], ranges[1], ranges[2], ranges[3]});
  }
  return false;
}

}  // namespace pallomir
