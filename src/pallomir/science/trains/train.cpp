#include "pallomir/science/trains/train.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace pallomir {

namespace {

constexpr int64_t kMillisecond = 1'000;
constexpr int64_t kFarthestLag = 500;  // milliseconds, exclusive

/// Counts of pairs by lag, in bins of 1 ms.
using Milliseconds = std::array<int64_t, kFarthestLag>;

/// With more neighbours than this, the end of each millisecond is found by binary search.
constexpr size_t kManyNeighbours = 4096;

void AddOneByOne(int64_t spike, std::span<const int64_t> later, Milliseconds& pairs) {
  for (const int64_t other : later) ++pairs[static_cast<size_t>((other - spike) / kMillisecond)];
}

/// For trains denser than any cell fires: the time hardly depends on the number of neighbours.
void AddBySearching(int64_t spike, std::span<const int64_t> later, Milliseconds& pairs) {
  auto begin = later.begin();
  for (int64_t k = 0; k < kFarthestLag && begin != later.end(); ++k) {
    const auto end = std::lower_bound(begin, later.end(), spike + (k + 1) * kMillisecond);
    pairs[static_cast<size_t>(k)] += end - begin;
    begin = end;
  }
}

void Gather(const Milliseconds& pairs, LagHistogram& histogram) {
  const auto each = static_cast<size_t>(histogram.Width / kMillisecond);
  for (size_t k = 0; k < histogram.Pairs.size() * each; ++k) histogram.Pairs[k / each] += pairs[k];
}

/// The edges of the logarithmic bins, rounded up to whole microseconds. Looking up an interval has no branch that
/// depends on it: 6 ns, where a binary search takes 23.
class EdgeTable {
 public:
  EdgeTable() {
    edges_.fill(INT64_MAX);
    for (int k = 0; k <= kLogBins; ++k) edges_[k] = static_cast<int64_t>(std::ceil(LogEdge(k) * 1e3));
    for (size_t width = 0; width < first_.size(); ++width) {
      const int64_t lowest = width == 0 ? 0 : int64_t{1} << (width - 1);
      const auto edge = std::upper_bound(edges_.begin(), edges_.begin() + kLogBins + 1, lowest);
      first_[width] = static_cast<size_t>(edge - edges_.begin());
    }
  }

  /// How many edges are at or below an interval.
  size_t EdgesUpTo(int64_t interval) const {
    const size_t first = first_[static_cast<size_t>(std::bit_width(static_cast<uint64_t>(interval)))];
    size_t count = first;
    for (size_t k = 0; k < kEdgesAnOctave; ++k) count += interval >= edges_[first + k];
    return count;
  }

 private:
  static constexpr size_t kEdgesAnOctave = 4;  // 10 log10(2) = 3.01, so 4 at most
  std::array<int64_t, kLogBins + 1 + kEdgesAnOctave> edges_;
  std::array<size_t, 64> first_;  ///< by the interval's bit width: the number of edges at or below the lowest such
                                  ///< interval
};

}  // namespace

TrainAutocorrelation AutocorrelationOf(std::span<const int64_t> spikes, const Progress& progress) {
  Milliseconds pairs{};
  size_t end = 0;
  for (size_t i = 0; i < spikes.size(); ++i) {
    while (end < spikes.size() && spikes[end] - spikes[i] < kFarthestLag * kMillisecond) ++end;
    const auto later = spikes.subspan(i + 1, end - i - 1);
    if (later.size() < kManyNeighbours)
      AddOneByOne(spikes[i], later, pairs);
    else
      AddBySearching(spikes[i], later, pairs);
    if (i % 256 == 0) progress.Reached(static_cast<double>(i) / static_cast<double>(spikes.size()));
  }
  TrainAutocorrelation correlation;
  Gather(pairs, correlation.Near);
  Gather(pairs, correlation.Far);
  return correlation;
}

double LogEdge(int k) {
  // Multiply, so that whole decades are exact: 0.1 ms is 100 microseconds.
  double decade = 100;
  for (int d = 0; d < k / 10; ++d) decade *= 10;
  return decade * std::pow(10.0, (k % 10) / 10.0) / 1e3;
}

LogIntervals LogIntervalsOf(std::span<const int64_t> spikes) {
  const EdgeTable table;
  // Indexed by the number of edges at or below the interval: none is below the first bin, all is above the last.
  std::array<int64_t, kLogBins + 2> counts{};
  LogIntervals intervals;
  for (size_t i = 1; i < spikes.size(); ++i) {
    const int64_t interval = spikes[i] - spikes[i - 1];
    ++counts[table.EdgesUpTo(interval)];
    intervals.Refractory += interval < kRefractoryPeriod;
  }
  intervals.Intervals = std::max<int64_t>(static_cast<int64_t>(spikes.size()) - 1, 0);
  intervals.Below = counts.front();
  intervals.Above = counts.back();
  std::copy_n(counts.begin() + 1, kLogBins, intervals.Counts.begin());
  return intervals;
}

}  // namespace pallomir
