#pragma once

#include <functional>
#include <utility>

#include "pallomir/files/error.h"

namespace pallomir {

/// Reports the progress of an operation and checks whether to continue. Cheap to copy; almost free without a callback.
class Progress {
 public:
  /// Called with the share (0 to 1) of the work that is done; returns false to stop.
  using Callback = std::function<bool(double share)>;

  /// Without a callback.
  Progress() = default;
  Progress(Callback callback) : callback_(std::move(callback)) {}  // NOLINT(google-explicit-constructor)

  /// Throws Interrupted if the work is to stop.
  void Reached(double share) const {
    if (callback_ && !callback_(share)) throw Interrupted();
  }

  /// The progress of a part of this work, from share `from` to share `to`.
  Progress Part(double from, double to) const {
    if (!callback_) return {};
    return Progress([callback = callback_, from, to](double share) { return callback(from + (to - from) * share); });
  }

  /// The progress of one of `steps` equal steps; `step` counts from 0.
  Progress Step(int step, int steps) const {
    return Part(static_cast<double>(step) / steps, static_cast<double>(step + 1) / steps);
  }

 private:
  Callback callback_;
};

}  // namespace pallomir
