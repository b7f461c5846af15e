#include "walk.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

#include "pallomir/files/save_file.h"
#include "pallomir/files/text_header.h"
#include "support.h"

namespace pallomir::bench {

namespace {

constexpr size_t kSpikes = 100'000;
constexpr int64_t kSamples = 36'000;
constexpr int64_t kInterval = 33'333;

double Uniform(std::mt19937_64& random) {
  return static_cast<double>(random() >> 11) * 0x1p-53;
}

Walk Simulated() {
  Walk walk;
  std::mt19937_64 random(1);
  double x = 200, y = 200, angle = 0;
  for (int64_t i = 0; i < kSamples; ++i) {
    angle += 60 * (Uniform(random) - 0.5);
    angle -= 360 * std::floor(angle / 360);
    x = std::clamp(x + 4 * std::cos(angle * std::numbers::pi / 180), 1.0, 399.0);
    y = std::clamp(y + 4 * std::sin(angle * std::numbers::pi / 180), 1.0, 399.0);
    if (x == 1 || y == 1 || x == 399 || y == 399) angle += 120;
    walk.Samples.Time.push_back(1'000'000'000 + i * kInterval);
    walk.Samples.X.push_back(120 + std::round(x));
    walk.Samples.Y.push_back(40 + std::round(y));
    walk.Samples.Direction.push_back(std::fmod(std::round(angle), 360));
  }
  for (size_t s = 0; s < kSpikes; ++s)
    walk.Spikes.push_back(1'000'000'000 + static_cast<int64_t>(Uniform(random) * kSamples * kInterval));
  std::sort(walk.Spikes.begin(), walk.Spikes.end());
  return walk;
}

void Put(const std::string& path, const std::string& text) {
  SaveFile file(path);
  file.Write(text);
  file.Commit();
}

void PutFiles(const Walk& walk, const std::string& folder) {
  std::string time = TextHeader("TFile"), positions = TextHeader("PosFile") + "PixelsPerCm,4\r\n";
  for (const int64_t spike : walk.Spikes) time += std::to_string(spike) + "\r\n";
  for (size_t i = 0; i < walk.Samples.Time.size(); ++i) {
    positions += std::to_string(walk.Samples.Time[i]);
    for (const double value : {walk.Samples.X[i], walk.Samples.Y[i], walk.Samples.Direction[i]})
      positions.append(",").append(std::to_string(static_cast<int>(value)));
    positions += "\r\n";
  }
  Put(folder + "/cl-tmp", TextHeader("Cl-File") + "0\r\n1E+12\r\n");
  Put(folder + "/ttmp", time);
  Put(folder + "/Pos.p", positions);
}

}  // namespace

const Walk& WalkInBox() {
  static const Walk walk = Simulated();
  return walk;
}

std::string WalkFile(const std::string& name) {
  static const std::string folder = [] {
    PutFiles(WalkInBox(), RecordingFolder());
    return RecordingFolder() + "/";
  }();
  return folder + name;
}

}  // namespace pallomir::bench
