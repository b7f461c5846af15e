#include "pallomir/session/work_pace.h"

#include <algorithm>

#include "pallomir/files/error.h"

namespace pallomir {

namespace {

constexpr auto kPumpInterval = std::chrono::milliseconds(20);
constexpr auto kShowAfter = std::chrono::milliseconds(200);

}  // namespace

WorkPace::~WorkPace() {
  if (shown_) world_.HideProgress();
}

void WorkPace::Reached(double share) {
  const auto now = world_.Now();
  if (now - pumped_ < kPumpInterval) return;
  pumped_ = now;
  if (now - begin_ >= kShowAfter) {
    shown_ = true;
    world_.ShowProgress(std::clamp(share, 0.0, 1.0));
  }
  if (!world_.PumpEvents()) throw Interrupted();
}

}  // namespace pallomir
