#include <algorithm>
#include <array>
#include <cmath>

#include "pallomir/files/bytes.h"
#include "pallomir/files/raw_header.h"
#include "pallomir/files/raw_layout.h"
#include "pallomir/files/save_file.h"
#include "tools/sample/sample_files.h"

namespace pallomir {

namespace {

constexpr double kBoxLeft = 120;  // pixels
constexpr double kBoxTop = 40;
constexpr double kLossChance = 0.002;  // per frame, of losing the animal for 2 to 25 frames

/// The time of each frame: about 33 ms apart, between 26 and 39, except in the gaps.
class FrameClock {
 public:
  explicit FrameClock(uint64_t microseconds)
      : gaps_{Gap{microseconds * 37 / 100, 3'400'000}, Gap{microseconds * 81 / 100, 1'600'000}} {}

  uint64_t Next(Draws& draws) {
    wander_ = 0.98 * wander_ + 150 * draws.Normal();
    const double interval = std::clamp(33'367 + wander_ + 900 * draws.Normal(), 26'000.0, 39'000.0);
    time_ += static_cast<uint64_t>(interval);
    for (Gap& gap : gaps_) {
      if (time_ < gap.Begin || gap.Length == 0) continue;
      time_ += gap.Length;
      gap.Length = 0;
    }
    return time_;
  }

 private:
  struct Gap {
    uint64_t Begin;
    uint64_t Length;
  };
  std::array<Gap, 2> gaps_;
  double wander_ = 0;
  uint64_t time_ = 0;
};

int32_t Pixels(double cm, double origin, Draws& draws) {
  return static_cast<int32_t>(std::lround(origin + kSamplePixelsPerCm * cm + 0.4 * draws.Normal()));
}

void StoreFrame(uint64_t time, const WalkStep* step, Draws& draws, unsigned char* record) {
  int32_t x = 0;
  int32_t y = 0;
  int32_t angle = 0;
  if (step) {
    x = Pixels(step->X, kBoxLeft, draws);
    y = Pixels(step->Y, kBoxTop, draws);
    // Clockwise from +y, as in kVideoAngles; headings go from +x towards +y.
    angle = static_cast<int32_t>(std::lround((1.25 - step->Heading) * 360.0)) % 360;
  }
  StoreLittleEndian(record + kVideoLayout.StampOffset, kSampleStart + time);
  StoreLittleEndian(record + kFrameX, x);
  StoreLittleEndian(record + kFrameY, y);
  StoreLittleEndian(record + kFrameAngle, angle);
}

}  // namespace

void WriteSampleVideo(const std::filesystem::path& path, const std::vector<WalkStep>& walk, Draws draws,
                      ProgressBar& progress) {
  SaveFile file(path);
  file.Write(MakeRawHeader("Pallomir sample recording: video tracking", {{"FileType", "Video"},
                                                                         {"RecordSize", "1828"},
                                                                         {"AcqEntName", "VT1"},
                                                                         {"Resolution", "640 x 480"},
                                                                         {"SamplingFrequency", "29.97"}}));
  const uint64_t end = (walk.size() - 1) * kWalkInterval;
  FrameClock clock(end);
  std::array<unsigned char, kVideoLayout.RecordBytes> record{};
  uint64_t lostFrames = 0;
  progress.Begin("seconds of video", end / 1'000'000);
  for (uint64_t time = clock.Next(draws); time < end; time = clock.Next(draws)) {
    if (lostFrames > 0)
      --lostFrames;
    else if (draws.Chance(kLossChance))
      lostFrames = 2 + draws.Next() % 24;
    StoreFrame(time, lostFrames > 0 ? nullptr : &walk[time / kWalkInterval], draws, record.data());
    file.Write(record.data(), record.size());
    progress.Reached(time / 1'000'000);
  }
  file.Commit();
}

}  // namespace pallomir
