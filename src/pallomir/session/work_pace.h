#pragma once

#include "pallomir/files/progress.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// Shows the progress of an operation and lets the user stop it. The progress bar appears after 200 ms and is hidden
/// when the operation ends, however it ends.
class WorkPace {
 public:
  explicit WorkPace(World& world) : world_(world), begin_(world.Now()) {}
  ~WorkPace();
  WorkPace(const WorkPace&) = delete;
  WorkPace& operator=(const WorkPace&) = delete;

  /// For operations that take a Progress; it must not outlive this object.
  operator Progress() {  // NOLINT(google-explicit-constructor)
    return Progress([this](double share) {
      Reached(share);
      return true;
    });
  }

  /// `share` (0 to 1) of the work is done. Cheap enough to call every few microseconds. Throws Interrupted when the
  /// user stops the work.
  void Reached(double share);

 private:
  World& world_;
  World::Clock::time_point begin_;
  /// The first call processes events at once, so that earlier clicks take visible effect.
  World::Clock::time_point pumped_{};
  bool shown_ = false;
};

}  // namespace pallomir
