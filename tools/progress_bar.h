#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>

namespace pallomir {

/// From now on Ctrl-C or a termination signal requests a stop, which takes effect when the work next reports its
/// progress, so that no half-written file remains. A second signal ends the program at once.
void HeedRequestsToStop();
bool IsToStop();

/// Shows the progress of work on a stream: on a terminal a bar with the rate, redrawn ten times a second, and a final
/// line if requested.
class ProgressBar {
 public:
  using Clock = std::chrono::steady_clock;

  ProgressBar(std::ostream& out, bool isTerminal, std::function<Clock::time_point()> now = Clock::now)
      : out_(out), isTerminal_(isTerminal), now_(std::move(now)) {}
  ~ProgressBar() { EraseBar(); }
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  /// `units` is what is counted ("spikes"), `total` their number. Begin() replaces the previous work. Both throw
  /// Interrupted if the work is to stop.
  void Begin(std::string_view units, uint64_t total);
  void Reached(uint64_t count);
  /// Prints how much was `done` ("Wrote") and how fast.
  void End(std::string_view done);

 private:
  std::string Rate(uint64_t count) const;
  void EraseBar();

  std::ostream& out_;
  bool isTerminal_;
  std::function<Clock::time_point()> now_;
  std::string units_;
  uint64_t total_ = 0;
  Clock::time_point begin_;
  Clock::time_point drawn_;
  bool barShown_ = false;
};

/// True if standard error is a terminal (or another device), so that a bar can be drawn on it.
bool StandardErrorIsTerminal();

}  // namespace pallomir
