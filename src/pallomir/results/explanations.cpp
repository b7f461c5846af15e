#include "pallomir/results/explanations.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "pallomir/files/number_text.h"
#include "pallomir/science/behaviour/spatial_autocorrelation.h"

namespace pallomir {

namespace {

std::string Span(int64_t first, int64_t last) {
  return std::to_string(first) + " to " + std::to_string(last) + " microseconds";
}

int64_t ValuesIn(const Map& map) {
  return std::count_if(map.Values.begin(), map.Values.end(), [](double value) { return !std::isnan(value); });
}

}  // namespace

std::string WhyNoTrack(const Positions& positions, const Track& track, const TimeRange& range) {
  if (positions.Time.empty()) return positions.Name + " contains no position samples.";
  if (track.Time.empty())
    return "No position sample lies within the time range of " + Span(range.First, range.Last) + "; those of " +
           positions.Name + " range from " + Span(positions.Time.front(), positions.Time.back()) + ".";
  if (track.Lost == static_cast<int64_t>(track.Time.size()))
    return "The animal was lost in all position samples within the time range (" + Grouped(track.Lost) + ").";
  if (std::accumulate(track.Hold.begin(), track.Hold.end(), 0.0) == 0)
    return "The position samples within the time range span no time: there is only one, or all have the same "
           "timestamp.";
  return {};
}

std::string WhyNoSpikes(const Usage& usage, const TimeRange& range) {
  if (usage.Spikes == 0)
    return "The cluster has no spike within the time range of " + Span(range.First, range.Last) + ".";
  if (usage.SpikesUsed == 0) return "No spike of the cluster falls on a usable position sample.";
  return {};
}

std::string WhyNoCorrelation(const Map& map, const Map& correlation) {
  if (ValuesIn(correlation) > 0) return {};
  const int64_t visited = ValuesIn(map);
  if (visited < kFewestOverlapping)
    return "The rate map has " + std::to_string(visited) + " visited bins; a correlation needs at least " +
           std::to_string(kFewestOverlapping) + ".";
  return "The rate is the same all over the map, so it has no correlation.";
}

}  // namespace pallomir
