#include "components/report_series.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <string>

#include "files/error.h"
#include "files/file_reader.h"
#include "files/number_text.h"
#include "files/text_header.h"
#include "files/text_lines.h"
#include "session/work_pace.h"

namespace pallomir {

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();
constexpr size_t kItems = 18;
constexpr size_t kFirstPeak = 1;  // before it the record number
constexpr size_t kPeaks = 16;     // behind them the stamp
using Items = std::array<double, kItems>;

/// The numbers of a line, apart by commas. False when they are not `count`.
bool ParseLine(std::string_view line, size_t count, Items& items) {
  for (size_t k = 0; k < count; ++k) {
    const size_t comma = line.find(',');
    if ((comma == std::string_view::npos) != (k + 1 == count)) return false;
    const auto number = NumberFromText(line.substr(0, comma));
    if (!number || std::abs(*number) > 1e38) return false;  // peaks are kept in single precision
    items[k] = *number;
    if (comma != std::string_view::npos) line.remove_prefix(comma + 1);
  }
  return true;
}

bool IsStamp(double stamp) {
  return std::abs(stamp) <= 1e18;
}

struct Spike {
  int64_t Time;
  std::array<float, kPeaks> Peaks;
};

/// Takes the lines of a cluster file in one by one.
class LineTaker {
 public:
  LineTaker(std::string name, int firstLine) : name_(std::move(name)), line_(firstLine) {}

  void Take(std::string_view line) {
    const int number = line_++;
    if (Trimmed(line).empty()) return;
    Items items;
    if (ranges_ < 2) {
      if (!ParseLine(line, 1, items) || !IsStamp(items[0])) Refuse(number, line, "is not a time");
      (ranges_++ == 0 ? lines_.First : lines_.Last) = std::llrint(items[0]);
      return;
    }
    if (!ParseLine(line, kItems, items) || !IsStamp(items.back())) Refuse(number, line, "is not a spike");
    AddSpike(items);
  }

  ClusterLines Result() {
    if (ranges_ < 2) throw CommandError(name_ + " ended early, before line " + std::to_string(line_) + ".");
    const auto earlier = [](const Spike& a, const Spike& b) { return a.Time < b.Time; };
    if (lines_.Disordered > 0) std::stable_sort(spikes_.begin(), spikes_.end(), earlier);
    for (const Spike& spike : spikes_) {
      float highest = -std::numeric_limits<float>::infinity();
      for (size_t k = 0; k < kPeaks; ++k)
        if (recorded_[k]) highest = std::max(highest, spike.Peaks[k]);
      lines_.Time.push_back(spike.Time);
      lines_.MaxHeight.push_back(std::isfinite(highest) ? highest : 0);
    }
    return std::move(lines_);
  }

 private:
  void AddSpike(const Items& items) {
    Spike spike{std::llrint(items.back()), {}};
    for (size_t k = 0; k < kPeaks; ++k) {
      spike.Peaks[k] = static_cast<float>(items[kFirstPeak + k]);
      recorded_[k] = recorded_[k] || spike.Peaks[k] != 0;
    }
    lines_.Disordered += spike.Time < before_;
    before_ = spike.Time;
    if (spike.Time < lines_.First || spike.Time > lines_.Last)
      ++lines_.Outside;
    else
      spikes_.push_back(spike);
  }

  [[noreturn]] void Refuse(int number, std::string_view line, const char* what) const {
    throw CommandError(name_ + ", line " + std::to_string(number) + ": \"" + std::string(line.substr(0, 40)) + "\" " +
                       what + ".");
  }

  std::string name_;
  int line_;
  int ranges_ = 0;  // lines of the time range that have come
  int64_t before_ = std::numeric_limits<int64_t>::min();
  std::array<bool, kPeaks> recorded_{};
  std::vector<Spike> spikes_;
  ClusterLines lines_;
};

}  // namespace

ClusterLines ReadClusterLines(World& world, std::string_view clusterFile) {
  const std::string beginning = ReadText(clusterFile, kTextHeaderLimit);
  const auto header = static_cast<size_t>(std::max(TextHeaderLength(beginning), 0L));
  const auto headerLines = std::count(beginning.begin(), beginning.begin() + static_cast<std::ptrdiff_t>(header), '\n');
  FileReader file(clusterFile);
  WorkPace pace(world);
  LineTaker taker(file.Name(), 1 + static_cast<int>(headerLines));
  uint64_t place = header;
  int lines = 0;
  ForEachLine(file, header, [&](std::string_view line, bool) {
    place += line.size() + 1;
    if (++lines % 1024 == 0) pace.Reached(static_cast<double>(place) / static_cast<double>(file.Length()));
    taker.Take(line);
  });
  return taker.Result();
}

double AngleAbout(const TrackedPoint& centre, double x, double y) {
  const double across = x - centre.X, down = y - centre.Y;
  if (std::isnan(across) || std::isnan(down) || (across == 0 && down == 0)) return kUnknown;
  const double degrees = std::atan2(-down, across) * 180 / std::numbers::pi;
  // A hair below 0 would become 360.
  const double turned = degrees < 0 ? degrees + 360 : degrees;
  return turned < 360 ? turned : 0;
}

TrackedPoint MiddleOfTrackedArea(std::span<const double> x, std::span<const double> y) {
  const auto middle = [](std::span<const double> values) {
    double low = kUnknown, high = kUnknown;
    for (const double value : values) {
      low = std::fmin(low, value);
      high = std::fmax(high, value);
    }
    return (low + high) / 2;
  };
  return {middle(x), middle(y)};
}

PlaceSeries PlacesOfSpikes(std::span<const int64_t> samples, std::span<const double> x, std::span<const double> y,
                           const TrackedPoint& centre) {
  PlaceSeries series;
  for (const int64_t sample : samples) {
    series.X.push_back(sample < 0 ? kUnknown : x[sample]);
    series.Y.push_back(sample < 0 ? kUnknown : y[sample]);
    series.Angle.push_back(AngleAbout(centre, series.X.back(), series.Y.back()));
  }
  return series;
}

}  // namespace pallomir
