#include "components/refractory.h"

#include <cmath>

namespace pallomir {

RefractoryFigures RefractoryFiguresOf(std::span<const int64_t> times, double duration, const Refractory& refractory) {
  RefractoryFigures figures;
  for (size_t i = 1; i < times.size(); ++i) {
    ++figures.Intervals;
    figures.Short += static_cast<double>(times[i] - times[i - 1]) < refractory.Period;
  }
  if (figures.Intervals == 0) return figures;
  const auto shorter = static_cast<double>(figures.Short), spikes = static_cast<double>(times.size());
  figures.Share = shorter / static_cast<double>(figures.Intervals);

  const double watched = refractory.Period - refractory.Censored;
  if (!(watched > 0) || !(duration > 0)) return figures;
  const double product = shorter * duration / (2 * watched * spikes * spikes);  // (1 - f) f
  figures.TooMany = product > 0.25;
  // As (1 - sqrt(1 - 4 p)) / 2, without the difference that would cost small shares their digits.
  if (!figures.TooMany) figures.Contamination = 2 * product / (1 + std::sqrt(1 - 4 * product));
  return figures;
}

}  // namespace pallomir
