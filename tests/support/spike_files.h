#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "pallomir/files/bytes.h"
#include "pallomir/files/raw_header.h"
#include "pallomir/recorded/spike_file.h"

namespace pallomir {

/// The header of a spike file with a scale of 0.5 microvolts per count, before further lines.
inline std::string SpikeFileHeader(std::string_view bitVolts = "0.0000005") {
  return MakeRawHeader("spikes", {{"RecordSize", "304"}, {"ADBitVolts", std::string(bitVolts)}});
}

/// A record of a spike file.
inline std::string SpikeBytes(uint64_t stamp, const WireSamples& samples) {
  std::string record(kTetrodeLayout.RecordBytes, '\0');
  auto* bytes = reinterpret_cast<unsigned char*>(record.data());
  StoreLittleEndian(bytes, stamp);
  for (int s = 0; s < kWaveformSamples; ++s)
    for (int wire = 0; wire < kWires; ++wire)
      StoreLittleEndian(bytes + kSpikeSamples + 2 * (kWires * s + wire), samples[wire][s]);
  return record;
}

/// As above, with every sample of wire w `value` * (w + 1).
inline std::string SpikeBytes(uint64_t stamp, int value = 0) {
  WireSamples samples;
  for (int wire = 0; wire < kWires; ++wire) samples[wire].fill(static_cast<int16_t>(value * (wire + 1)));
  return SpikeBytes(stamp, samples);
}

}  // namespace pallomir
