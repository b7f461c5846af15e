#pragma once

#include "pallomir/files/progress.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// Lets the user see and stop a piece of work. The progress bar appears once it has taken a fifth of a second, and is
/// hidden however the work ends.
class WorkPace {
 public:
  explicit WorkPace(World& world) : world_(world), begin_(world.Now()) {}
  ~WorkPace();
  WorkPace(const WorkPace&) = delete;
  WorkPace& operator=(const WorkPace&) = delete;

  /// For work that tells its progress: it must end before this does.
  operator Progress() {  // NOLINT(google-explicit-constructor)
    return Progress([this](double share) {
      Reached(share);
      return true;
    });
  }

  /// `share` (0 to 1) of the work is done. Cheap enough for every few microseconds of work. Throws Interrupted when the
  /// user wants it to stop.
  void Reached(double share);

 private:
  World& world_;
  World::Clock::time_point begin_;
  /// The user is looked at right away: whatever was clicked before shows.
  World::Clock::time_point pumped_{};
  bool shown_ = false;
};

}  // namespace pallomir
