#pragma once

#include <algorithm>

#include "pallomir/session/world.h"

namespace pallomir {

/// The world of one part of a longer operation. The progress of its steps, each of which runs from 0 to 1, moves the
/// progress of the whole within the part's share, never back; the bar is left for the next part.
class PartOfWork : public World {
 public:
  /// The part from share `from` to share `to` of the work in `whole`.
  PartOfWork(World& whole, double from, double to) : whole_(whole), from_(from), to_(to) {}

  Clock::time_point Now() const override { return whole_.Now(); }
  void ShowMessage(std::string_view text, std::string_view title) override { whole_.ShowMessage(text, title); }
  void AppendMessage(std::string_view line) override { whole_.AppendMessage(line); }
  void ShowProgress(double share) override {
    furthest_ = std::max(furthest_, share);
    whole_.ShowProgress(from_ + (to_ - from_) * furthest_);
  }
  void HideProgress() override {}
  bool PumpEvents() override { return whole_.PumpEvents(); }
  void StopHeard() override { whole_.StopHeard(); }

 private:
  World& whole_;
  double from_;
  double to_;
  double furthest_ = 0;
};

}  // namespace pallomir
