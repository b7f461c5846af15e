#include "tools/progress_bar.h"

#include <algorithm>
#include <csignal>
#include <filesystem>

#include "pallomir/files/error.h"
#include "tools/figures.h"

namespace pallomir {

namespace {

constexpr auto kRedrawInterval = std::chrono::milliseconds(100);
constexpr uint64_t kBarWidth = 40;

volatile std::sig_atomic_t isToStop = 0;

extern "C" void AskToStop(int signal) {
  isToStop = 1;
  std::signal(signal, SIG_DFL);
}

void ThrowIfToStop() {
  if (isToStop) throw Interrupted();
}

}  // namespace

void HeedRequestsToStop() {
  for (const int signal : {SIGINT, SIGTERM})
    if (std::signal(signal, AskToStop) == SIG_IGN) std::signal(signal, SIG_IGN);  // respect an ignored signal
}

bool IsToStop() {
  return isToStop != 0;
}

void ProgressBar::Begin(std::string_view units, uint64_t total) {
  ThrowIfToStop();
  units_ = units;
  total_ = total;
  begin_ = drawn_ = now_();
}

void ProgressBar::Reached(uint64_t count) {
  ThrowIfToStop();
  if (!isTerminal_) return;
  const auto now = now_();
  if (now - drawn_ < kRedrawInterval) return;
  drawn_ = now;
  const uint64_t filled = total_ == 0 ? kBarWidth : std::min(count, total_) * kBarWidth / total_;
  out_ << "\r[" << std::string(filled, '#') << std::string(kBarWidth - filled, '.') << "] " << CountText(count)
       << " of " << CountText(total_) << " " << units_ << Rate(count) << "\033[K" << std::flush;
  barShown_ = true;
}

void ProgressBar::End(std::string_view done) {
  EraseBar();
  const double seconds = std::chrono::duration<double>(now_() - begin_).count();
  out_ << done << " " << CountText(total_) << " " << units_ << " in " << RoundedText(seconds, 2) << " s" << Rate(total_)
       << "\n"
       << std::flush;
}

std::string ProgressBar::Rate(uint64_t count) const {
  const double seconds = std::chrono::duration<double>(now_() - begin_).count();
  if (count == 0 || seconds <= 0) return {};
  return " (" + RoundedText(static_cast<double>(count) / seconds, 0) + " per second)";
}

void ProgressBar::EraseBar() {
  if (barShown_) out_ << "\r\033[K" << std::flush;
  barShown_ = false;
}

bool StandardErrorIsTerminal() {
  std::error_code error;
  return std::filesystem::is_character_file("/dev/stderr", error);
}

}  // namespace pallomir
