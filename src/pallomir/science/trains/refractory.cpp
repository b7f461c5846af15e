#include "pallomir/science/trains/refractory.h"

#include <cmath>

namespace pallomir {

namespace {

/// `product` is (1 - f) f.
Contamination ContaminationOf(double product) {
  if (product > 0.25) return {0.5, true};
  // Equal to (1 - sqrt(1 - 4 p)) / 2, but without the cancellation that would make small shares imprecise.
  return {2 * product / (1 + std::sqrt(1 - 4 * product)), false};
}

}  // namespace

RefractoryFigures RefractoryFiguresOf(std::span<const int64_t> times, double duration, const Refractory& refractory) {
  RefractoryFigures figures;
  for (size_t i = 1; i < times.size(); ++i) {
    ++figures.Intervals;
    figures.Short += static_cast<double>(times[i] - times[i - 1]) < refractory.Period;
  }
  if (figures.Intervals == 0) return figures;
  const auto intervals = static_cast<double>(figures.Intervals), spikes = static_cast<double>(times.size());
  figures.Share = static_cast<double>(figures.Short) / intervals;

  const double watched = refractory.Period - refractory.Censored;
  if (!(watched > 0) || !(duration > 0)) return figures;
  const auto contaminationFor = [&](double violations) {
    return ContaminationOf(violations * duration / (2 * watched * spikes * spikes));
  };
  const Interval share = BinomialInterval(figures.Short, figures.Intervals);
  figures.Foreign = contaminationFor(static_cast<double>(figures.Short));
  figures.Least = contaminationFor(share.Low * intervals);
  figures.Most = contaminationFor(share.High * intervals);
  return figures;
}

}  // namespace pallomir
