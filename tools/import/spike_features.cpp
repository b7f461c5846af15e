#include "tools/import/spike_features.h"

#include <algorithm>
#include <cmath>

#include "pallomir/files/bytes.h"
#include "pallomir/files/parameter_header.h"
#include "pallomir/session/parameter_catalogue.h"

namespace pallomir {

ChannelFeatures MeasureChannel(const Waveform& samples) {
  int64_t squares = 0;
  for (const int64_t sample : samples) squares += sample * sample;

  const auto peak = std::max_element(samples.begin(), samples.end());
  const auto valley = std::min_element(peak, samples.end());
  const int16_t before = peak == samples.begin() ? *peak : *std::min_element(samples.begin(), peak);
  return {.MPeak = *peak,
          .PreVal = before,
          .Valley = *valley,
          .Energy = std::sqrt(static_cast<double>(squares) / kWaveformSamples),
          .PeakPlace = static_cast<int>(peak - samples.begin()),
          .ValleyPlace = static_cast<int>(valley - samples.begin())};
}

void StoreParameterRow(std::span<const Waveform> channels, const SpikeContext& context, unsigned char* row) {
  const auto store = [row](int parameter, double value) {
    StoreLittleEndian(row + kStampBytes + sizeof(float) * parameter, static_cast<float>(value));
  };
  int maxHeight = -1;
  int maxWidth = 0;
  for (int c = 0; c < static_cast<int>(channels.size()); ++c) {
    const ChannelFeatures features = MeasureChannel(channels[c]);
    store(kMPeak + c, features.MPeak);
    store(kPreVal + c, features.PreVal);
    store(kEnergy + c, features.Energy);
    store(kValley + c, features.Valley);
    if (features.MPeak - features.Valley <= maxHeight) continue;
    maxHeight = features.MPeak - features.Valley;
    maxWidth = features.ValleyPlace - features.PeakPlace;
  }
  StoreLittleEndian(row, context.Stamp);
  store(kRecordSlot, static_cast<float>(context.Record));
  store(kSpikeID, static_cast<float>(context.Record));
  store(kMaxHeight, maxHeight);
  store(kMaxWidth, maxWidth);
  store(kPosX, context.PosX);
  store(kPosY, context.PosY);
  store(kTimestamp, static_cast<float>(context.Stamp));
}

}  // namespace pallomir
