#include "pallomir/clusters/axis_scaling.h"

#include <algorithm>
#include <limits>

namespace pallomir {

namespace {

double Fifth(const Session& session, int parameter) {
  return (double{session.AxisMaximum[parameter]} - double{session.AxisMinimum[parameter]}) / 5;
}

void Narrow(Session& session, int parameter, double d) {
  SetAxis(session, parameter, {session.AxisMinimum[parameter] + d, session.AxisMaximum[parameter] - d});
}

/// Narrows both axes by `sign` fifths at either end, computed from the ranges before the change.
void Scale(Session& session, int sign) {
  const double dx = sign * Fifth(session, session.XParameter);
  const double dy = sign * Fifth(session, session.YParameter);
  Narrow(session, session.XParameter, dx);
  Narrow(session, session.YParameter, dy);
}

}  // namespace

void ScaleUp(Session& session) {
  Scale(session, 1);
}

void ScaleDown(Session& session) {
  Scale(session, -1);
}

void ScaleDefaults(Session& session) {
  for (const int p : {session.XParameter, session.YParameter}) {
    session.AxisMaximum[p] = session.DataMaximum[p];
    session.AxisMinimum[p] = session.DataMinimum[p];
  }
}

void SetAxis(Session& session, int parameter, const TypedRange& range) {
  constexpr double kLargest = std::numeric_limits<float>::max();
  if (range.Lower) session.AxisMinimum[parameter] = static_cast<float>(std::clamp(*range.Lower, -kLargest, kLargest));
  if (range.Upper) session.AxisMaximum[parameter] = static_cast<float>(std::clamp(*range.Upper, -kLargest, kLargest));
}

void SetAllAxes(Session& session, const TypedRange& range) {
  for (int p = 0; p < kParameters; ++p) SetAxis(session, p, range);
}

}  // namespace pallomir
