#include "pallomir/recorded/spike_file.h"

#include <algorithm>

#include "pallomir/files/file_fault.h"
#include "pallomir/files/raw_header.h"

namespace pallomir {

namespace {

/// Whether a value is plausible as volts per count.
bool IsScale(double volts) {
  return volts > 0 && volts < 1;
}

}  // namespace

void SpikeRecord::ReadSamples(WireSamples& samples) const {
  const unsigned char* first = Bytes + kSpikeSamples;
  for (int s = 0; s < kWaveformSamples; ++s)
    for (int wire = 0; wire < kWires; ++wire)
      samples[wire][s] = LoadLittleEndian<int16_t>(first + 2 * (kWires * s + wire));
}

SpikeFile::SpikeFile(const std::filesystem::path& path) : file_(path, kTetrodeLayout) {
  const std::vector<double> volts = HeaderNumbers(file_.Header(), "ADBitVolts");
  const bool complete = volts.size() == 1 || volts.size() >= kWires;
  if (complete && std::all_of(volts.begin(), volts.end(), IsScale)) {
    for (int wire = 0; wire < kWires; ++wire) scale_[wire] = 1e6 * (volts.size() == 1 ? volts[0] : volts[wire]);
    scaleKnown_ = true;
  }
  const std::vector<double> retrigger = HeaderNumbers(file_.Header(), "SpikeRetriggerTime");
  if (!retrigger.empty() && retrigger[0] > 0 && retrigger[0] < 1e6) deadTime_ = retrigger[0];
  const std::vector<double> rate = HeaderNumbers(file_.Header(), "SamplingFrequency");
  if (!rate.empty() && rate[0] > 0 && std::isfinite(rate[0])) samplingRate_ = rate[0];
}

void SpikeFile::ForSpikes(std::span<const uint64_t> numbers,
                          const std::function<void(size_t, const WireSamples&)>& use) {
  // Records close to each other are read together: a gap costs less than another read.
  constexpr uint64_t kGap = 8;
  const size_t size = file_.Layout().RecordBytes;
  std::vector<unsigned char> block;
  WireSamples samples;
  for (size_t begin = 0, end = 0; begin < numbers.size(); begin = end) {
    for (end = begin + 1; end < numbers.size() && numbers[end] - numbers[end - 1] <= kGap; ++end)
      if (numbers[end] - numbers[begin] >= kBlockRecords) break;
    const uint64_t first = numbers[begin];
    block.resize(size * static_cast<size_t>(numbers[end - 1] - first + 1));
    file_.Read(first, block.size() / size, block.data());
    for (size_t i = begin; i < end; ++i) {
      SpikeRecord{numbers[i], 0, block.data() + size * static_cast<size_t>(numbers[i] - first)}.ReadSamples(samples);
      use(i, samples);
    }
  }
}

void SpikeFile::RefuseForeign() const {
  throw FaultOf(ErrorKind::Foreign, file_.Path(),
                "is not a spike file of the acquisition system: " + std::to_string(unreadable_) +
                    " of its records have an impossible timestamp");
}

}  // namespace pallomir
