#include "tools/sample/cells.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "pallomir/files/bytes.h"
#include "pallomir/recorded/position_file.h"
#include "pallomir/recorded/spike_file.h"
#include "pallomir/science/behaviour/arena.h"
#include "pallomir/science/trains/train_measures.h"
#include "pallomir/science/waveforms/waveform_measures.h"
#include "raw_files.h"
#include "tools/sample/make_sample.h"

namespace pallomir {
namespace {

using namespace pallomir::testing;

#ifdef __SANITIZE_ADDRESS__
constexpr int kShifts = 200;  // it takes ten times as long
#else
constexpr int kShifts = 1000;
#endif

/// What is measured of a cell of the sample recording.
struct MeasuredCell {
  std::vector<int64_t> Spikes;
  WaveformAverager Averager;
  SpikeHeights Heights;
  TrainMeasures Train;
  WaveformMeasures Waveform;
  ChanceMeasures Chance;
};

std::vector<MeasuredCell> MeasureSampleCells() {
  const TemporaryFolder folder;
  std::ostringstream said;
  ProgressBar progress(said, false);
  MakeSample({folder / "sample", 80'000, 1}, progress);
  std::vector<MeasuredCell> cells(kCells.size());
  int64_t first = INT64_MAX, last = 0;
  SpikeFile file(folder / "sample/TT1/TT1.Ntt");
  file.ForEachSpike([](double) {},
                    [&](const SpikeRecord& record) {
                      first = std::min(first, record.Stamp);
                      last = record.Stamp;
                      const auto number = LoadLittleEndian<uint32_t>(record.Bytes + kSpikeCell);
                      if (number == 0) return;
                      MeasuredCell& cell = cells[number - 1];
                      WireSamples samples;
                      record.ReadSamples(samples);
                      cell.Averager.Add(samples);
                      cell.Spikes.push_back(record.Stamp);
                      cell.Heights.Time.push_back(record.Stamp);
                      for (int wire = 0; wire < kWires; ++wire)
                        cell.Heights.Counts[wire].push_back(*std::ranges::max_element(samples[wire]));
                    });
  MeasureSettings settings;
  settings.Chance.Shifts = kShifts;
  const LoadedTime time({{first, last}});
  const Arena arena(ReadPositions(folder / "sample/Pos.p", {}), time, settings);
  for (MeasuredCell& cell : cells) {
    cell.Train = TrainMeasuresOf(cell.Spikes, time, {});
    cell.Waveform = WaveformMeasuresOf(cell.Averager.Result(file.MicrovoltsPerCount()), cell.Heights,
                                       file.MicrovoltsPerCount(), file.SamplingRate(), time);
    cell.Chance = arena.ChanceOf(cell.Spikes, arena.MeasuresOf(cell.Spikes));
  }
  return cells;
}

/// Every measure is beyond chance in the cells of its kind and in no others.
TEST(SampleCells, PassTheMeasuresOfTheirKindAndNoOthers) {
  const std::vector<MeasuredCell> cells = MeasureSampleCells();
  for (size_t k = 0; k < cells.size(); ++k) {
    SCOPED_TRACE("cell " + std::to_string(k + 1));
    const CellKind kind = kCells[k].Kind;
    const ChanceMeasures& chance = cells[k].Chance;
    const bool inPlaces = kind == CellKind::PlaceCell || kind == CellKind::Grid || kind == CellKind::Border;
    const auto passes = [](const ChanceLevel& level) { return level.P.Value < 0.01; };
    EXPECT_EQ(passes(chance.Information), inPlaces);
    EXPECT_EQ(passes(chance.Stability), inPlaces);
    EXPECT_EQ(passes(chance.Grid), kind == CellKind::Grid);
    EXPECT_EQ(passes(chance.Border), kind == CellKind::Border);
    EXPECT_EQ(passes(chance.VectorLength), kind == CellKind::HeadDirection);
    EXPECT_EQ(passes(chance.Speed), kind == CellKind::Speed);
    EXPECT_EQ(cells[k].Train.Bursts.Value > 0.5, kind == CellKind::Bursting);
    EXPECT_EQ(cells[k].Waveform.PeakToTrough.Value < 300, kind == CellKind::Interneuron);
  }
}

}  // namespace
}  // namespace pallomir
