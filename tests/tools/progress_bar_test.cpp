#include "tools/progress_bar.h"

#include <gtest/gtest.h>

#include <sstream>

namespace pallomir {
namespace {

struct ProgressBars : ::testing::Test {
  ProgressBar::Clock::time_point Time;
  std::ostringstream out;

  ProgressBar Make(bool isTerminal) {
    return {out, isTerminal, [this] { return Time; }};
  }
  /// Waits until the bar is due, then reports.
  void ReportLate(ProgressBar& progress, uint64_t count) {
    Time += std::chrono::milliseconds(110);
    progress.Reached(count);
  }
};

TEST_F(ProgressBars, PrintsOneLineAtTheEndIfThereIsNoTerminal) {
  {
    ProgressBar progress = Make(false);
    progress.Begin("bytes", 7);
    ReportLate(progress, 3);
    progress.Begin("spikes", 1200);
    ReportLate(progress, 600);
    progress.End("Wrote");
  }
  EXPECT_EQ(out.str(), "Wrote 1\u202f200 spikes in 0.11 s (10909 per second)\n");
}

TEST_F(ProgressBars, DrawsABarAndRemovesItWhenTheWorkEnds) {
  {
    ProgressBar progress = Make(true);
    progress.Begin("spikes", 4);
    for (uint64_t count = 0; count < 3; ++count) progress.Reached(count);  // too soon to be drawn
    EXPECT_EQ(out.str(), "");
    ReportLate(progress, 1);
    EXPECT_NE(out.str().find("\r[##########..............................] 1 of 4 spikes ("), std::string::npos);
    progress.Begin("frames", 0);
    ReportLate(progress, 9);
    EXPECT_NE(out.str().find("\r[########################################] 9 of 0 frames"), std::string::npos);
  }
  EXPECT_TRUE(out.str().ends_with("\033[K")) << out.str();
}

}  // namespace
}  // namespace pallomir
