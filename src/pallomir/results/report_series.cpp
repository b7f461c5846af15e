#include "pallomir/results/report_series.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>

#include "pallomir/files/number_text.h"
#include "pallomir/files/text_case.h"
#include "pallomir/files/text_lines.h"
#include "pallomir/recorded/position_file.h"
#include "pallomir/results/spike_times.h"
#include "pallomir/science/behaviour/angles.h"

namespace pallomir {

namespace {

constexpr size_t kItems = 18;
constexpr size_t kFirstPeak = 1;  // after the record number
constexpr size_t kPeaks = 16;     // followed by the stamp
using Items = std::array<double, kItems>;

/// The number of an item: NaN for the texts written for values that are not finite, and for values beyond single
/// precision; empty for other texts.
std::optional<double> NumberOf(std::string_view text) {
  if (const auto number = NumberFromText(text))
    return std::abs(*number) <= std::numeric_limits<float>::max() ? *number : kNotKnown;
  text = Trimmed(text);
  if (text.starts_with('-')) text.remove_prefix(1);
  if (SameButForCase(text, "nan") || SameButForCase(text, "inf")) return kNotKnown;
  return {};
}

/// Parses the comma-separated numbers of a line. False if there are not exactly `count`.
bool ParseLine(std::string_view line, size_t count, Items& items) {
  TextFields fields(line);
  for (size_t k = 0; k < count; ++k) {
    const auto number = NumberOf(fields.Take());
    if (!number || fields.More() != (k + 1 < count)) return false;
    items[k] = *number;
  }
  return true;
}

struct Spike {
  int64_t Time;
  std::array<float, kPeaks> Peaks;
};

/// The highest of the recorded peaks; NaN if any peak is not finite.
float HighestOf(const Spike& spike, const std::array<bool, kPeaks>& recorded) {
  float highest = -std::numeric_limits<float>::infinity();
  for (size_t k = 0; k < kPeaks; ++k) {
    if (std::isnan(spike.Peaks[k])) return spike.Peaks[k];
    if (recorded[k]) highest = std::max(highest, spike.Peaks[k]);
  }
  return std::isfinite(highest) ? highest : 0;
}

}  // namespace

ClusterLines ReadClusterLines(World& world, const std::filesystem::path& clusterFile) {
  const TimeRange range = ReadTimeRange(clusterFile);
  int linesOfRange = 2;
  std::array<bool, kPeaks> recorded{};
  std::vector<Spike> spikes;
  ForEachNumberedLine(world, clusterFile, [&](const NumberedLine& line) {
    Items items;
    if (linesOfRange > 0) {
      if (!ParseLine(line.Text, 1, items)) line.Refuse("is not a time");
      --linesOfRange;
      return;
    }
    if (!ParseLine(line.Text, kItems, items)) line.Refuse("is not a spike");
    if (!IsStamp(items.back())) return;
    Spike spike{std::llrint(items.back()), {}};
    for (size_t k = 0; k < kPeaks; ++k) {
      spike.Peaks[k] = static_cast<float>(items[kFirstPeak + k]);
      recorded[k] = recorded[k] || (spike.Peaks[k] != 0 && !std::isnan(spike.Peaks[k]));
    }
    if (range.Holds(spike.Time)) spikes.push_back(spike);
  });
  const auto earlier = [](const Spike& a, const Spike& b) { return a.Time < b.Time; };
  if (!std::is_sorted(spikes.begin(), spikes.end(), earlier)) std::stable_sort(spikes.begin(), spikes.end(), earlier);
  ClusterLines lines;
  lines.First = range.First;
  lines.Last = range.Last;
  for (const Spike& spike : spikes) {
    lines.Time.push_back(spike.Time);
    lines.MaxHeight.push_back(HighestOf(spike, recorded));
    lines.WithoutHeight += std::isnan(lines.MaxHeight.back());
  }
  if (!range.MakesSense() && !lines.Time.empty()) {
    lines.First = std::max(range.First, lines.Time.front());
    lines.Last = std::min(range.Last, lines.Time.back());
  }
  return lines;
}

double AngleAbout(const Position& centre, double x, double y) {
  const double across = x - centre.X, down = y - centre.Y;
  if (std::isnan(across) || std::isnan(down) || (across == 0 && down == 0)) return kNotKnown;
  return DegreesOf(across, -down);
}

Position MiddleOfTrackedArea(std::span<const double> x, std::span<const double> y) {
  const auto middle = [](std::span<const double> values) {
    double low = kNotKnown, high = kNotKnown;
    for (const double value : values) {
      low = std::fmin(low, value);
      high = std::fmax(high, value);
    }
    return (low + high) / 2;
  };
  return {middle(x), middle(y)};
}

PositionSeries PositionsOfSpikes(std::span<const int64_t> samples, std::span<const double> x, std::span<const double> y,
                                 const Position& centre) {
  PositionSeries series;
  for (const int64_t sample : samples) {
    series.X.push_back(sample < 0 ? kNotKnown : x[sample]);
    series.Y.push_back(sample < 0 ? kNotKnown : y[sample]);
    series.Angle.push_back(AngleAbout(centre, series.X.back(), series.Y.back()));
  }
  return series;
}

}  // namespace pallomir
