// Runs the benchmarks and prints one line for each path: ours, the naive baseline and the floor, with their ratios.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "gui/controls/theme.h"
#include "pallomir/files/platform.h"
#include "support.h"

namespace {

/// Collects the fastest run of every benchmark, by path and variant ("load rows", "ours").
class Table : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override { return true; }

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
      const std::string name = run.run_name.function_name;
      const size_t slash = name.find('/');
      const std::string path = name.substr(0, slash);
      if (!milliseconds_.contains(path)) order_.push_back(path);
      double& best = milliseconds_[path][name.substr(slash + 1)];
      const double time = run.GetAdjustedRealTime();
      best = best == 0 ? time : std::min(best, time);
      std::fprintf(stderr, "%s: %.1f ms\n", name.c_str(), time);
    }
  }

  void Finalize() override {
    const double spikes = static_cast<double>(pallomir::bench::Spikes());
    std::printf("| %.0f spikes | ms | naive, ms | times faster | floor, ms | of the floor |\n", spikes);
    std::printf("| --- | --- | --- | --- | --- | --- |\n");
    for (const std::string& path : order_) {
      if (!milliseconds_[path].contains("ours")) continue;
      const double ours = milliseconds_[path]["ours"];
      std::printf("| %s | %.1f |", path.c_str(), ours);
      Compare(milliseconds_[path]["naive"], milliseconds_[path]["naive"] / ours);
      Compare(milliseconds_[path]["floor"], ours / milliseconds_[path]["floor"]);
      std::printf("\n");
    }
    std::printf("\nLargest memory in use: %.0f MB\n", static_cast<double>(pallomir::PeakMemory()) / 1e6);
  }

 private:
  static void Compare(double time, double ratio) {
    if (time > 0)
      std::printf(" %.1f | %.1f |", time, ratio);
    else
      std::printf(" | |");
  }

  std::vector<std::string> order_;
  std::map<std::string, std::map<std::string, double>> milliseconds_;
};

}  // namespace

int main(int argumentCount, char** arguments) {
  benchmark::Initialize(&argumentCount, arguments);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argumentCount, arguments);
  pallomir::ApplyTheme(application);
  Table table;
  benchmark::RunSpecifiedBenchmarks(&table);
  return 0;
}
