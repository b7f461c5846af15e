#include <algorithm>

#include "pallomir/files/bytes.h"
#include "pallomir/files/raw_header.h"
#include "pallomir/files/save_file.h"
#include "tools/sample/sample_files.h"
#include "tools/sample/spike_shapes.h"

namespace pallomir {

namespace {

constexpr size_t kBlockRecords = 1024;
constexpr uint64_t kMillisecond = 1'000;
constexpr float kHeightSpread = 0.05F;  // of a cell's spikes, as a share of their height

std::string SpikesHeader() {
  const std::string volts = "0.000000030517578125";  // 1e-6 / kCountsPerMicrovolt
  return MakeRawHeader("Pallomir sample recording: tetrode spikes",
                       {{"FileType", "Spike"},
                        {"RecordSize", "304"},
                        {"AcqEntName", "TT1"},
                        {"NumADChannels", "4"},
                        {"SamplingFrequency", "32000"},
                        {"ADMaxValue", "32767"},
                        {"ADBitVolts", volts + " " + volts + " " + volts + " " + volts},
                        {"InputInverted", "True"},
                        {"WaveformLength", "32"},
                        {"AlignmentPt", "8"}});
}

/// The features of a raw record: the four wires' highest samples, then their lowest.
std::array<int32_t, 8> RawFeatures(const TetrodeSamples& samples) {
  std::array<int32_t, 8> features;
  for (int wire = 0; wire < 4; ++wire) {
    features[wire] = features[4 + wire] = samples[0][wire];
    for (const auto& sample : samples) {
      features[wire] = std::max<int32_t>(features[wire], sample[wire]);
      features[4 + wire] = std::min<int32_t>(features[4 + wire], sample[wire]);
    }
  }
  return features;
}

void StoreSpike(uint64_t stamp, uint32_t cell, const TetrodeSamples& samples, unsigned char* record) {
  StoreLittleEndian(record, stamp);
  StoreLittleEndian<uint32_t>(record + kSpikeGroup, 0);
  StoreLittleEndian(record + kSpikeCell, cell);
  const auto features = RawFeatures(samples);
  for (size_t f = 0; f < features.size(); ++f) StoreLittleEndian(record + kSpikeFeatures + 4 * f, features[f]);
  unsigned char* next = record + kSpikeSamples;
  for (const auto& sample : samples)
    for (const int16_t value : sample) {
      StoreLittleEndian(next, value);
      next += 2;
    }
}

SpikeShape ShapeOf(const CellSpike& spike, uint64_t microseconds, Draws& draws) {
  const Cell& cell = kCells[spike.Cell - 1];
  const double elapsed = static_cast<double>(spike.Time) / static_cast<double>(microseconds);
  SpikeShape shape{HeightsOnWires(cell, elapsed), cell.Kind == CellKind::Interneuron ? 1.0F : 0.0F};
  const float factor = spike.Height * (1 + kHeightSpread * static_cast<float>(draws.Normal()));
  for (float& height : shape.Heights) height *= factor;
  return shape;
}

/// Many distant cells: low spikes with similar heights on all wires.
SpikeShape NoiseShape(Draws& draws) {
  SpikeShape shape{};
  const double u = draws.Uniform();
  const double middle = 38 + 46 * u * u;
  for (float& height : shape.Heights)
    height = static_cast<float>(middle * std::clamp(1 + 0.2 * draws.Normal(), 0.5, 1.6));
  shape.Narrowness = static_cast<float>(draws.Uniform());
  return shape;
}

/// Collects spikes into records and writes them in blocks.
class SpikeFileWriter {
 public:
  SpikeFileWriter(const std::filesystem::path& path, ProgressBar& progress)
      : file_(path), progress_(progress), block_(kBlockRecords * kTetrodeLayout.RecordBytes) {
    file_.Write(SpikesHeader());
  }

  void Add(uint64_t time, uint32_t cell, const SpikeShape& shape, Draws& draws) {
    StoreSpike(kSampleStart + time, cell, maker_.Make(shape, draws),
               block_.data() + filled_ * kTetrodeLayout.RecordBytes);
    if (++filled_ == kBlockRecords) WriteBlock();
  }

  void Finish() {
    WriteBlock();
    file_.Commit();
  }

 private:
  void WriteBlock() {
    file_.Write(block_.data(), filled_ * kTetrodeLayout.RecordBytes);
    written_ += filled_;
    filled_ = 0;
    progress_.Reached(written_);
  }

  SaveFile file_;
  ProgressBar& progress_;
  WaveformMaker maker_;
  std::vector<unsigned char> block_;
  size_t filled_ = 0;
  uint64_t written_ = 0;
};

/// Draws the times of noise within the millisecond from `begin` on, in order, at a rate that spreads `remaining` evenly
/// over `milliseconds`.
void DrawNoiseTimes(uint64_t begin, uint64_t remaining, uint64_t milliseconds, Draws& draws,
                    std::vector<uint64_t>& times) {
  times.clear();
  const uint64_t sure = remaining / milliseconds;
  const double share = static_cast<double>(remaining % milliseconds) / static_cast<double>(milliseconds);
  const uint64_t count = sure + (draws.Chance(share) ? 1 : 0);
  for (uint64_t n = 0; n < count; ++n) times.push_back(begin + draws.Next() % kMillisecond);
  std::sort(times.begin(), times.end());
}

}  // namespace

void WriteSampleSpikes(const std::filesystem::path& path, const std::vector<CellSpike>& cellSpikes, uint64_t spikes,
                       uint64_t microseconds, Draws draws, ProgressBar& progress) {
  SpikeFileWriter writer(path, progress);
  const size_t fromCells = static_cast<size_t>(std::min<uint64_t>(cellSpikes.size(), spikes));
  uint64_t noiseLeft = spikes - fromCells;
  const uint64_t milliseconds = microseconds / kMillisecond;
  std::vector<uint64_t> noise;
  size_t next = 0;
  const auto addCellsUpTo = [&](uint64_t time) {
    for (; next < fromCells && cellSpikes[next].Time <= time; ++next)
      writer.Add(cellSpikes[next].Time, cellSpikes[next].Cell, ShapeOf(cellSpikes[next], microseconds, draws), draws);
  };
  progress.Begin("spikes", spikes);
  for (uint64_t m = 0; m < milliseconds; ++m) {
    DrawNoiseTimes(m * kMillisecond, noiseLeft, milliseconds - m, draws, noise);
    noiseLeft -= noise.size();
    for (const uint64_t time : noise) {
      addCellsUpTo(time);
      writer.Add(time, 0, NoiseShape(draws), draws);
    }
  }
  addCellsUpTo(UINT64_MAX);
  writer.Finish();
  progress.End("Simulated");
}

}  // namespace pallomir
