#include "tools/import/spike_features.h"

#include <gtest/gtest.h>

#include "pallomir/files/bytes.h"
#include "pallomir/files/parameter_header.h"
#include "pallomir/session/parameter_catalogue.h"

namespace pallomir {
namespace {

Waveform Samples(std::initializer_list<std::pair<int, int16_t>> values, int16_t elsewhere = 0) {
  Waveform samples;
  samples.fill(elsewhere);
  for (const auto& [index, value] : values) samples[index] = value;
  return samples;
}

TEST(SpikeFeatures, AreMeasuredRoundThePeak) {
  struct Case {
    const char* Name;
    Waveform Samples;
    int MPeak, PreVal, Valley, PeakPlace, ValleyPlace;
  };
  const Case cases[] = {
      {"a lower dip before the peak is not the valley", Samples({{3, -900}, {8, 1000}, {20, -400}}), 1000, -900, -400,
       8, 20},
      {"peak on the first sample", Samples({{0, 500}, {5, -30}}), 500, 500, -30, 0, 5},
      {"peak on the last sample", Samples({{31, 500}, {5, -30}}), 500, -30, 500, 31, 31},
      {"the first of equal peaks and of equal valleys", Samples({{8, 7}, {9, 7}, {20, -5}, {25, -5}}), 7, 0, -5, 8, 20},
      {"flat", Samples({}, -4), -4, -4, -4, 0, 0},
      {"full scale", Samples({{8, 32767}}, -32768), 32767, -32768, -32768, 8, 9},
  };
  for (const Case& c : cases) {
    const ChannelFeatures features = MeasureChannel(c.Samples);
    EXPECT_EQ(features.MPeak, c.MPeak) << c.Name;
    EXPECT_EQ(features.PreVal, c.PreVal) << c.Name;
    EXPECT_EQ(features.Valley, c.Valley) << c.Name;
    EXPECT_EQ(features.PeakPlace, c.PeakPlace) << c.Name;
    EXPECT_EQ(features.ValleyPlace, c.ValleyPlace) << c.Name;
  }
  EXPECT_DOUBLE_EQ(MeasureChannel(Samples({}, -32768)).Energy, 32768);
  EXPECT_DOUBLE_EQ(MeasureChannel(Samples({{0, 4}, {1, -4}})).Energy, 1);
}

TEST(SpikeFeatures, HeightAndWidthAreThoseOfTheTallestChannel) {
  const Waveform channels[] = {Samples({{8, 100}, {11, -50}}), Samples({{8, 90}, {18, -90}}),
                               Samples({{8, 120}, {30, -60}})};
  unsigned char row[kRowBytes] = {};
  StoreParameterRow(channels, {1'700'000'000'000'001, 12, 3.5F, -7}, row);
  const auto value = [&](int parameter) { return LoadLittleEndian<float>(row + kStampBytes + 4 * parameter); };
  EXPECT_EQ(value(kMaxHeight), 180);
  EXPECT_EQ(value(kMaxWidth), 10);
  EXPECT_EQ(LoadLittleEndian<uint64_t>(row), 1'700'000'000'000'001);
  EXPECT_EQ(value(kTimestamp), 1.7e15F);
  EXPECT_EQ(value(kSpikeID), 12);
  EXPECT_EQ(value(kRecordSlot), 12);
  EXPECT_EQ(value(kPosX), 3.5F);
  EXPECT_EQ(value(kPosY), -7);
  EXPECT_EQ(value(kMPeak + 2), 120);
  EXPECT_EQ(value(kValley + 1), -90);
  EXPECT_EQ(value(kMPeak + 3), 0);
}

}  // namespace
}  // namespace pallomir
