// Overlaying waveforms in an image of 900 x 900 pixels: one record of 1024 samples for every hundredth spike, 10
// million segments for a million spikes, including reading.

#include <QImage>
#include <QPainter>
#include <random>

#include "gui/forms/cluster_panel.h"
#include "pallomir/files/bytes.h"
#include "pallomir/files/save_file.h"
#include "pallomir/waveforms/waveform_picture.h"
#include "support.h"

namespace pallomir::bench {

namespace {

constexpr int kSide = 900;

/// Spikes of up to 4000 counts on noise of 300, as on a tetrode with a full scale of 1 mV.
void WriteWaveforms(const std::string& path, int recorded) {
  std::mt19937 generator(1);
  std::normal_distribution<float> normal;
  SaveFile file(path);
  std::array<unsigned char, kWaveformRecordBytes> record{};
  for (int64_t r = 0; r < Spikes() / 100; ++r) {
    for (int b = 0; b < recorded; ++b) {
      const float height = 1500 + 800 * std::abs(normal(generator));
      float noise = 0;
      for (int j = 0; j < kBlockSamples; ++j) {
        noise = 0.5F * noise + 260 * normal(generator);
        const auto t = static_cast<float>(j - 8);
        const float value = height * std::exp(-t * t / 12) - height / 3 * std::exp(-(t - 12) * (t - 12) / 40) + noise;
        StoreLittleEndian(record.data() + 2 * (kBlockSamples * b + j), static_cast<int16_t>(value));
      }
    }
    file.Write(record.data(), record.size());
  }
  file.Commit();
}

/// Writes the waveform file beside the parameter file whose name is returned.
std::string WaveformsOf(int recorded) {
  const std::string stem = RecordingFolder() + "/waveforms" + std::to_string(recorded);
  static std::array<bool, kWaveformBlocks + 1> written{};
  if (!written[recorded]) WriteWaveforms(stem + ".waveforms", recorded);
  written[recorded] = true;
  return stem + ".Ntt.parms";
}

void OverlayOurs(benchmark::State& state, int recorded) {
  const std::string name = WaveformsOf(recorded);
  WaveformPicture picture(WholeWaveformView(kSide, kSide));
  std::array<uint32_t, 256> palette{};
  QImage image(kSide, kSide, QImage::Format_RGB32);
  for (auto _ : state) {
    WaveformFile file(name);
    WaveformRecord record;
    picture.Clear();
    for (int64_t r = 0; file.Read(r, record); ++r) picture.Draw(record, static_cast<int>(r % 7));
    picture.Pixels().Paint(palette, reinterpret_cast<uint32_t*>(image.bits()), kSide);
  }
}

/// A painter's line for each segment of the channels whose samples are not all 0.
void OverlayNaive(benchmark::State& state, int recorded) {
  const std::string name = WaveformsOf(recorded);
  const View view = WholeWaveformView(kSide, kSide);
  QImage image(kSide, kSide, QImage::Format_RGB32);
  for (auto _ : state) {
    WaveformFile file(name);
    WaveformRecord record;
    image.fill(Qt::black);
    QPainter painter(&image);
    for (int64_t r = 0; file.Read(r, record); ++r) {
      painter.setPen(QColor(20 * static_cast<int>(r % 7) + 100, 100, 200));
      for (int b = 0; b < recorded; ++b) {
        const double shift = b % 2 ? kColumnShift : 0;
        const int16_t* samples = record.data() + kBlockSamples * b;
        QPoint from;
        for (int j = 0; j < kBlockSamples; ++j) {
          const QPoint to(qRound(view.PixelX(shift + j)), qRound(view.PixelY(samples[j] - kBlockShift * b)));
          if (j > 0) painter.drawLine(from, to);
          from = to;
        }
      }
    }
  }
}

void OverlayFloor(benchmark::State& state, int recorded) {
  const std::string name = WaveformsOf(recorded);
  for (auto _ : state) {
    WaveformFile file(name);
    WaveformRecord record;
    for (int64_t r = 0; file.Read(r, record); ++r) benchmark::DoNotOptimize(record);
  }
}

#define OVERLAY(variant, recorded, name)            \
  void variant##recorded(benchmark::State& state) { \
    variant(state, recorded);                       \
  }                                                 \
  BENCHMARK(variant##recorded)->Name(name)->Unit(benchmark::kMillisecond)->MinTime(0.5)

OVERLAY(OverlayOurs, 32, "overlay 10 000 waveforms of 32 channels/ours");
OVERLAY(OverlayNaive, 32, "overlay 10 000 waveforms of 32 channels/naive");
OVERLAY(OverlayFloor, 32, "overlay 10 000 waveforms of 32 channels/floor");
OVERLAY(OverlayOurs, 4, "overlay 10 000 waveforms of 4 channels/ours");
OVERLAY(OverlayNaive, 4, "overlay 10 000 waveforms of 4 channels/naive");
OVERLAY(OverlayFloor, 4, "overlay 10 000 waveforms of 4 channels/floor");

}  // namespace

}  // namespace pallomir::bench
