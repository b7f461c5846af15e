#include "tools/sample/walk.h"

#include <algorithm>
#include <cmath>

#include "tools/sample/curves.h"

namespace pallomir {

namespace {

constexpr double kStepSeconds = 0.01;
constexpr double kRootStep = 0.1;  // sqrt(kStepSeconds)
constexpr double kWall = 2;        // cm between the centre of the head and the walls, at least

/// A random walk that reverts to `Middle` with a time constant of `Seconds`; `Spread` is its standard deviation.
struct Stray {
  double Value;
  double Middle;
  double Spread;
  double Seconds;

  void Step(Draws& draws) {
    const double kick = Spread * std::sqrt(2 / Seconds) * kRootStep;
    Value += (Middle - Value) * kStepSeconds / Seconds + kick * draws.Normal();
  }
};

/// Moves one coordinate; returns true if it stops at a wall.
bool Move(double& coordinate, double distance) {
  coordinate += distance;
  const double inside = std::clamp(coordinate, kWall, kBoxSize - kWall);
  const bool hit = inside != coordinate;
  coordinate = inside;
  return hit;
}

}  // namespace

std::vector<WalkStep> WalkInBox(uint64_t microseconds, Draws draws) {
  std::vector<WalkStep> steps(static_cast<size_t>(microseconds / kWalkInterval + 1));
  Stray speed{15, 15, 7, 1.5};     // cm/s
  Stray turning{0, 0, 0.25, 0.4};  // turns/s
  Stray look{0, 0, 0.05, 0.8};     // turns
  double x = kBoxSize / 2;
  double y = kBoxSize / 2;
  double direction = 0.125;
  for (WalkStep& step : steps) {
    speed.Step(draws);
    speed.Value = std::clamp(speed.Value, 5.0, kTopSpeed);
    turning.Step(draws);
    look.Step(draws);
    direction += turning.Value * kStepSeconds;
    const double distance = speed.Value * kStepSeconds;
    if (Move(x, distance * CosTurns(direction))) direction = 0.5 - direction;
    if (Move(y, distance * SinTurns(direction))) direction = -direction;
    const double heading = direction + look.Value;
    step = {static_cast<float>(x), static_cast<float>(y), static_cast<float>(heading - std::floor(heading)),
            static_cast<float>(speed.Value)};
  }
  return steps;
}

}  // namespace pallomir
