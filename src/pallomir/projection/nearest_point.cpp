#include "pallomir/projection/nearest_point.h"

#include <algorithm>

namespace pallomir {

namespace {

bool IsDisplayed(const Session& session, size_t i, const std::optional<std::vector<std::pair<float, float>>>& ranges) {
  const PointTable& points = session.Points;
  const float record = points.Column(kRecordSlot)[i];
  if (ranges && std::none_of(ranges->begin(), ranges->end(),
                             [&](const auto& range) { return record >= range.first && record <= range.second; }))
    return false;
  const int members = points.Memberships(i);
  if (members == 0) return session.Display[0];
  for (int slot = 0; slot < members; ++slot)
    if (session.Display[points.Slot(slot)[i]]) return true;
  return false;
}

}  // namespace

std::optional<size_t> NearestPoint(const Session& session, ParameterPair pair, const View& view, double pixelX,
                                   double pixelY, double reach,
                                   const std::optional<std::vector<std::pair<float, float>>>& ranges) {
  if (!view.Drawable()) return {};
  const auto x = session.Points.Column(pair.X), y = session.Points.Column(pair.Y);
  const auto atX = static_cast<float>(view.ValueX(pixelX)), atY = static_cast<float>(view.ValueY(pixelY));
  const auto scaleX = static_cast<float>((view.Width - 1) / (view.Right - view.Left));
  const auto scaleY = static_cast<float>((view.Height - 1) / (view.Bottom - view.Top));
  auto best = static_cast<float>(reach * reach);
  std::optional<size_t> nearest;
  for (size_t i = 0; i < session.Points.Rows(); ++i) {
    const float dx = (x[i] - atX) * scaleX, dy = (y[i] - atY) * scaleY;
    const float distance = dx * dx + dy * dy;
    if (!(distance <= best) || !IsDisplayed(session, i, ranges)) continue;
    best = distance;
    nearest = i;
  }
  return nearest;
}

}  // namespace pallomir
