#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>

namespace pallomir {

/// From now on Ctrl-C, or being asked to end, is a request that the work heeds at its next look at its progress, so
/// that no half-written file stays. A second one ends the program at once.
void HeedRequestsToStop();
bool IsToStop();

/// Tells on a stream how long pieces of work go: a bar with the rate, redrawn ten times a second, where the stream is a
/// terminal, and a line at the end of a piece of work that asks for it.
class ProgressBar {
 public:
  using Clock = std::chrono::steady_clock;

  ProgressBar(std::ostream& out, bool isTerminal, std::function<Clock::time_point()> now = Clock::now)
      : out_(out), isTerminal_(isTerminal), now_(std::move(now)) {}
  ~ProgressBar() { EraseBar(); }
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  /// `units` is what is counted ("spikes"), `total` how many there are. Takes over from the work before. Both throw
  /// Interrupted when the work is to stop.
  void Begin(std::string_view units, uint64_t total);
  void Reached(uint64_t count);
  /// Says how much was `done` ("Wrote") and how fast.
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

/// True when standard error is a terminal (or another device), so that a bar may be drawn on it.
bool StandardErrorIsTerminal();

}  // namespace pallomir
