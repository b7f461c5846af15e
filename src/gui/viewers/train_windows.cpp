#include "gui/viewers/train_windows.h"

#include "gui/viewers/figures.h"

namespace pallomir {

namespace {

constexpr double kRefractoryMilliseconds = static_cast<double>(kRefractoryPeriod) / 1000;
constexpr char kRefractoryWords[] = "2 ms";

/// "50.2 %".
QString Percent(double share) {
  return Figure(share * 100) + " %";
}

}  // namespace

AutocorrelationWindow::AutocorrelationWindow(QWidget* parent, Dialogs& dialogs, const ResultTitle& title,
                                             const std::filesystem::path& resultFile)
    : HistogramWindow(parent, dialogs, title, "Autocorrelation", resultFile) {
  const AutocorrelationResult result = ReadAutocorrelationFile(resultFile);
  const TrainAutocorrelation& correlation = result.Correlation;
  const int64_t close = correlation.Near.Pairs[0] + correlation.Near.Pairs[1];
  SetWords({InLine({Whole(double(result.Used.SpikesUsed)) + " spikes",
                    Whole(double(close)) + (close == 1 ? " pair" : " pairs") + " closer than 2 ms"})},
           QString::fromStdString(UsageText(result.Used)), QString::fromStdString(result.Explanation));
  if (IsEmpty()) return;

  for (const LagHistogram* half : {&correlation.Near, &correlation.Far}) {
    const double width = static_cast<double>(half->Width) / 1000;
    const auto bins = static_cast<int>(half->Pairs.size());
    Histogram histogram;
    for (int k = -bins; k <= bins; ++k) histogram.Edges << k * width;
    for (int k = -bins; k < bins; ++k) histogram.Counts << static_cast<double>(half->Pairs[k < 0 ? -k - 1 : k]);
    histogram.Counted = "pairs";
    histogram.AxisLabel = QString("lag (ms), bins of %1 ms").arg(Figure(width));
    AddHistogram(histogram);
    if (half != &correlation.Near) continue;
    Mark(-kRefractoryMilliseconds, {});
    Mark(kRefractoryMilliseconds, QString::fromUtf8("\u00b1") + kRefractoryWords);
  }
}

IntervalWindow::IntervalWindow(QWidget* parent, Dialogs& dialogs, const ResultTitle& title,
                               const std::filesystem::path& resultFile)
    : HistogramWindow(parent, dialogs, title, "Log ISI", resultFile) {
  const IntervalResult result = ReadIntervalFile(resultFile);
  const LogIntervals& intervals = result.Intervals;
  SetWords({InLine({Whole(double(intervals.Intervals)) + " intervals",
                    QString("%1 (%2) below 2 ms")
                        .arg(Percent(intervals.RefractoryShare()), Whole(double(intervals.Refractory)))}),
            "What share of foreign spikes this means depends on the rate: see Analysis Report",
            QString("Outside the axis: %1 below 0.1 ms, %2 of 100 s and more")
                .arg(Whole(double(intervals.Below)), Whole(double(intervals.Above)))},
           QString::fromStdString(UsageText(result.Used)), QString::fromStdString(result.Explanation));
  if (IsEmpty()) return;

  Histogram histogram;
  for (int k = 0; k <= kLogBins; ++k) histogram.Edges << LogEdge(k);
  for (const int64_t count : intervals.Counts) histogram.Counts << static_cast<double>(count);
  histogram.Counted = "intervals";
  histogram.AxisLabel = "interval (ms)";
  histogram.Logarithmic = true;
  AddHistogram(histogram);
  Mark(kRefractoryMilliseconds, kRefractoryWords);
}

}  // namespace pallomir
