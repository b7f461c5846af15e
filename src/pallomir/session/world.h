#pragma once

#include <chrono>
#include <string_view>

namespace pallomir {

/// The world outside the program's own logic. The main form is one; tests hand in a recording fake.
class World {
 public:
  using Clock = std::chrono::steady_clock;
  virtual ~World() = default;

  /// What time it is, for work that shows how far it is.
  virtual Clock::time_point Now() const { return Clock::now(); }

  /// A modal message box with an OK button, under the application's own title when `title` is empty.
  virtual void ShowMessage(std::string_view text, std::string_view title = {}) = 0;

  /// Appends one line to the session log.
  virtual void AppendMessage(std::string_view line) = 0;

  /// Shows that `share` (0 to 1) of the work is done.
  virtual void ShowProgress(double share) = 0;
  virtual void HideProgress() = 0;

  /// Lets the user interface process pending events. False when the user wants the running work to stop.
  virtual bool PumpEvents() = 0;

  /// Work that was to stop is putting back what was: from here on PumpEvents() is false only for a new wish to stop.
  virtual void StopHeard() {}
};

}  // namespace pallomir
