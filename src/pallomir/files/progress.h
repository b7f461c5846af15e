#pragma once

#include <functional>
#include <utility>

#include "pallomir/files/error.h"

namespace pallomir {

/// How a piece of work says how much of it is done, and learns whether to go on. Light to copy; what is told nothing
/// costs next to nothing.
class Progress {
 public:
  /// Is told the share (0 to 1) of the work that is done; false when it is to stop.
  using Callback = std::function<bool(double share)>;

  /// Nobody listens.
  Progress() = default;
  Progress(Callback callback) : callback_(std::move(callback)) {}  // NOLINT(google-explicit-constructor)

  /// Throws Interrupted when the work is to stop.
  void Reached(double share) const {
    if (callback_ && !callback_(share)) throw Interrupted();
  }

  /// The progress of the part of this work that leads from one share to another.
  Progress Part(double from, double to) const {
    if (!callback_) return {};
    return Progress([callback = callback_, from, to](double share) { return callback(from + (to - from) * share); });
  }

  /// The progress of one of several steps of equal length, the first being 0.
  Progress Step(int step, int steps) const {
    return Part(static_cast<double>(step) / steps, static_cast<double>(step + 1) / steps);
  }

 private:
  Callback callback_;
};

}  // namespace pallomir
