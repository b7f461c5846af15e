#pragma once

#include <chrono>
#include <cmath>
#include <string>
#include <string_view>
#include <vector>

#include "pallomir/session/world.h"

namespace pallomir {

/// A world that records what it is asked to show.
class RecordingWorld : public World {
 public:
  /// Message boxes, as "TITLE: text" or "text".
  std::vector<std::string> Boxes;
  std::vector<std::string> Log;
  std::vector<int> Progress;  ///< in 32766ths
  bool ProgressVisible = false;
  int Pumps = 0;

  /// The pump, counted from 1, at which the user asks for the work to stop; 0 for never.
  int InterruptAt = 0;
  /// Makes work that processes events only every so often do so after each step.
  bool Slow = false;

  Clock::time_point Now() const override { return Clock::now() + taken_; }
  void ShowMessage(std::string_view text, std::string_view title) override {
    Boxes.push_back((title.empty() ? "" : std::string(title) + ": ") + std::string(text));
  }
  void AppendMessage(std::string_view line) override { Log.emplace_back(line); }
  void ShowProgress(double share) override {
    Progress.push_back(static_cast<int>(std::lrint(32766 * share)));
    ProgressVisible = true;
    TakeTime();
  }
  void HideProgress() override { ProgressVisible = false; }
  bool PumpEvents() override {
    TakeTime();
    return ++Pumps != InterruptAt;
  }

 private:
  void TakeTime() {
    if (Slow) taken_ += std::chrono::milliseconds(30);
  }

  Clock::duration taken_{};
};

}  // namespace pallomir
