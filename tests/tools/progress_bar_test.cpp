#include "tools/progress_bar.h"

#include <gtest/gtest.h>

#include <sstream>
#include <thread>

namespace pallomir {
namespace {

/// Lets the bar be due, then reports.
void ReportLate(ProgressBar& progress, uint64_t count) {
  std::this_thread::sleep_for(std::chrono::milliseconds(110));
  progress.Reached(count);
}

TEST(ProgressBar, SaysOneLineAtTheEndWhereThereIsNoTerminal) {
  std::ostringstream out;
  {
    ProgressBar progress(out, false);
    progress.Begin("bytes", 7);
    ReportLate(progress, 3);
    progress.Begin("spikes", 1200);
    ReportLate(progress, 600);
    progress.End("Wrote");
  }
  EXPECT_TRUE(out.str().starts_with("Wrote 1\u202f200 spikes in 0.1")) << out.str();
  EXPECT_TRUE(out.str().ends_with(" a second)\n")) << out.str();
}

TEST(ProgressBar, DrawsABarThatIsGoneWhenTheWorkIsLeft) {
  std::ostringstream out;
  {
    ProgressBar progress(out, true);
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
