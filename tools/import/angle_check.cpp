#include "tools/import/angle_check.h"

#include <cmath>
#include <complex>
#include <limits>
#include <numbers>

#include "pallomir/recorded/angle_header.h"
#include "pallomir/science/behaviour/tracking.h"
#include "tools/figures.h"

namespace pallomir {

namespace {

constexpr double kRunningCm = 10;  // cm per second
constexpr double kRunningPixels = 40;
constexpr size_t kEnoughRunning = 300;  // samples; ten seconds at 30 frames per second
constexpr double kNearAxis = 20;        // degrees within which a zero is snapped to an axis
constexpr double kBadAgreement = 0.5;
constexpr double kClearlyBetter = 0.1;

std::complex<double> Unit(double degrees) {
  return std::polar(1.0, degrees * std::numbers::pi / 180);
}

/// An angle and the direction of travel at one time; travel in degrees from +x towards +y.
struct Run {
  double Angle, Travel;
};

std::vector<Run> RunsIn(const Positions& recorded, double speed) {
  const Track track = TrackWithin(recorded, {-kFarthestStamp, kFarthestStamp});
  const std::vector<double> travel = DirectionsOfTravel(track, speed);
  std::vector<Run> runs;
  for (size_t i = 0; i < travel.size(); ++i)
    if (!std::isnan(travel[i]) && !std::isnan(track.Direction[i])) runs.push_back({track.Direction[i], -travel[i]});
  return runs;
}

AngleFit FitOf(const std::vector<Run>& runs, const AngleConvention& convention) {
  double sum = 0;
  for (const Run& run : runs) sum += (Unit(HeadingOf(run.Angle, convention)) * Unit(run.Travel)).real();
  return {convention, runs.empty() ? 0 : sum / static_cast<double>(runs.size())};
}

/// The best zero for a sense is the mean direction of travel minus the angle, or plus the angle if clockwise.
AngleFit BestOf(const std::vector<Run>& runs, bool clockwise) {
  std::complex<double> sum;
  for (const Run& run : runs) sum += Unit(run.Travel + (clockwise ? run.Angle : -run.Angle));
  const double degrees = std::arg(sum) * 180 / std::numbers::pi;
  const double axis = 90 * std::round(degrees / 90);
  const double zero = std::abs(degrees - axis) <= kNearAxis ? axis : std::round(degrees);
  return FitOf(runs, {zero < 0 ? zero + 360 : zero, clockwise, false});
}

std::string OptionsOf(const AngleConvention& convention) {
  return "--angle-zero " + AngleZeroText(convention.Zero) + " --angle-sense " + (convention.Clockwise ? "cw" : "ccw");
}

}  // namespace

bool AngleCheck::IsEnough() const {
  return Running >= kEnoughRunning;
}

bool AngleCheck::Fits() const {
  return Assumed.Agreement >= kBadAgreement && Assumed.Agreement >= Best.Agreement - kClearlyBetter;
}

AngleCheck CheckAngles(const Positions& recorded) {
  AngleCheck check;
  check.HasAngles = recorded.HasDirection;
  check.Speed = recorded.PixelsPerCm > 0 ? kRunningCm * recorded.PixelsPerCm : kRunningPixels;
  const std::vector<Run> runs = RunsIn(recorded, check.Speed);
  check.Running = runs.size();
  check.Assumed = FitOf(runs, recorded.Angles);
  const AngleFit clockwise = BestOf(runs, true), counter = BestOf(runs, false);
  check.Best = clockwise.Agreement > counter.Agreement ? clockwise : counter;
  check.HasSense = std::abs(clockwise.Agreement - counter.Agreement) > kClearlyBetter;
  return check;
}

std::string AnglesSentence(const AngleCheck& check) {
  if (!check.HasAngles) return "none; the direction of travel is used instead";
  const auto figure = [](const AngleFit& fit) { return RoundedText(fit.Agreement, 2); };
  std::string text = ConventionText(check.Assumed.Convention);
  if (!check.IsEnough())
    return text + "; too little running to check it against the direction of travel: " + CountText(check.Running) +
           " samples above " + RoundedText(check.Speed, 0) + " pixels/s";
  text += "; agreement with the direction of travel, in " + CountText(check.Running) +
          " samples of a running animal: " + figure(check.Assumed) + " of 1";
  if (check.Fits())
    text += ", it fits";
  else if (check.Best.Agreement < kBadAgreement)
    text += ", and no convention fits; the best would be " + ConventionText(check.Best.Convention) + " with " +
            figure(check.Best) + ". If the angles are of no use, import with --no-angle";
  else
    text += ", it does not fit; " + ConventionText(check.Best.Convention) + " has " + figure(check.Best) +
            ": import with " + OptionsOf(check.Best.Convention);
  if (!check.HasSense && check.Best.Agreement >= kBadAgreement)
    text += ". The animal ran to and fro, which does not tell clockwise from counter-clockwise";
  return text;
}

}  // namespace pallomir
