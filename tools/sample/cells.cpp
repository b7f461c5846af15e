#include "tools/sample/cells.h"

#include <algorithm>
#include <cmath>
#include <tuple>

#include "tools/sample/curves.h"

namespace pallomir {

namespace {

constexpr double kBackgroundRate = 0.05;  // spikes per second of tuned cells everywhere
constexpr double kThetaFrequency = 8;     // Hz
constexpr uint64_t kMillisecond = 1'000;

/// Sum of three gratings at 60 degrees, 1 at every vertex and near 0 between them.
double GridAt(const Cell& cell, double x, double y) {
  const double cyclesPerCm = 2 / (std::sqrt(3.0) * cell.FieldSize);
  double sum = 0;
  for (const double turns : {0.0, 1.0 / 6, 1.0 / 3})
    sum += CosTurns(cyclesPerCm * ((x - cell.FieldX) * CosTurns(turns) + (y - cell.FieldY) * SinTurns(turns)));
  const double height = (sum + 1.5) / 4.5;
  return height * height * height;
}

double RateAt(const Cell& cell, const WalkStep& step, double theta) {
  const double modulation = 1 + 0.7 * theta;
  switch (cell.Kind) {
    case CellKind::PlaceCell: {
      const double dx = (step.X - cell.FieldX) / cell.FieldSize;
      const double dy = (step.Y - cell.FieldY) / cell.FieldSize;
      return kBackgroundRate + cell.PeakRate * modulation * Hill(std::sqrt(dx * dx + dy * dy));
    }
    case CellKind::Grid:
      return kBackgroundRate + cell.PeakRate * modulation * GridAt(cell, step.X, step.Y);
    case CellKind::HeadDirection: {
      const double likeness = (1 + CosTurns(step.Heading - cell.PreferredHeading)) / 2;
      const double fourth = likeness * likeness * likeness * likeness;
      return kBackgroundRate + cell.PeakRate * fourth * fourth;
    }
    case CellKind::Bursting:
      return cell.PeakRate;
    case CellKind::Interneuron:
      return cell.PeakRate * modulation;
    case CellKind::Border:
      return kBackgroundRate + cell.PeakRate * modulation * Hill(step.X / cell.FieldSize);
    case CellKind::Speed:
      return cell.PeakRate * modulation * step.Speed / kTopSpeed;
  }
  return 0;
}

/// One burst: two to five spikes 3 to 7 ms apart, each lower than the previous one. Returns the time of the last.
uint64_t FireBurst(uint64_t time, uint32_t number, Draws& draws, std::vector<CellSpike>& spikes) {
  const uint64_t length = 2 + draws.Next() % 4;
  float height = 1;
  for (uint64_t n = 0; n < length; ++n) {
    if (n > 0) time += 3'000 + draws.Next() % 4'000;
    spikes.push_back({time, height, number});
    height *= 0.88F;
  }
  return time;
}

/// Each millisecond has a spike with a probability of rate times 1 ms, unless the cell is refractory.
void FireCell(uint32_t number, const std::vector<WalkStep>& walk, double share, Draws draws,
              std::vector<CellSpike>& spikes) {
  const Cell& cell = kCells[number - 1];
  const uint64_t end = (walk.size() - 1) * kWalkInterval;
  uint64_t ready = 0;
  for (uint64_t time = 0; time < end; time += kMillisecond) {
    const double theta = CosTurns(kThetaFrequency * 1e-6 * static_cast<double>(time));
    const double rate = RateAt(cell, walk[time / kWalkInterval], theta);
    if (!draws.Chance(rate * share * 1e-3)) continue;
    uint64_t at = time + draws.Next() % kMillisecond;
    if (at < ready) continue;
    if (cell.Kind == CellKind::Bursting)
      at = FireBurst(at, number, draws, spikes);
    else
      spikes.push_back({at, 1, number});
    ready = at + kRefractory;
  }
}

}  // namespace

std::vector<CellSpike> FireCells(const std::vector<WalkStep>& walk, double share, const Draws& draws) {
  std::vector<CellSpike> spikes;
  for (uint32_t number = 1; number <= kCells.size(); ++number)
    FireCell(number, walk, share, draws.Part(number), spikes);
  std::sort(spikes.begin(), spikes.end(),
            [](const CellSpike& a, const CellSpike& b) { return std::tie(a.Time, a.Cell) < std::tie(b.Time, b.Cell); });
  return spikes;
}

std::array<float, 4> HeightsOnWires(const Cell& cell, double elapsed) {
  constexpr double halfSpacing = 12.5;  // the wires are at the corners of a square of 25 micrometres
  constexpr double drift = 2;
  std::array<float, 4> heights;
  for (int wire = 0; wire < 4; ++wire) {
    const double dx = cell.Site[0] - (wire % 2 == 0 ? -halfSpacing : halfSpacing);
    const double dy = cell.Site[1] - (wire < 2 ? -halfSpacing : halfSpacing);
    const double dz = cell.Site[2] + drift * (elapsed - 0.5);
    heights[wire] = static_cast<float>(cell.Strength / std::sqrt(dx * dx + dy * dy + dz * dz));
  }
  return heights;
}

}  // namespace pallomir
