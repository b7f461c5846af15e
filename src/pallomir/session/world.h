#pragma once

#include <chrono>
#include <string_view>

namespace pallomir {

/// The program's environment. The main form implements it; tests use a recording fake.
class World {
 public:
  using Clock = std::chrono::steady_clock;
  virtual ~World() = default;

  /// The current time, for operations that show their progress.
  virtual Clock::time_point Now() const { return Clock::now(); }

  /// A modal message box with an OK button; an empty `title` stands for the application's name.
  virtual void ShowMessage(std::string_view text, std::string_view title = {}) = 0;

  /// Appends one line to the session log.
  virtual void AppendMessage(std::string_view line) = 0;

  /// Shows that `share` (0 to 1) of the work is done.
  virtual void ShowProgress(double share) = 0;
  virtual void HideProgress() = 0;

  /// Lets the user interface process pending events. Returns false if the user stops the running work.
  virtual bool PumpEvents() = 0;

  /// Stopped work is restoring the former state: from now on PumpEvents() only returns false for a new stop request.
  virtual void StopHeard() {}
};

}  // namespace pallomir
