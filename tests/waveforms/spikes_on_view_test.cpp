#include "pallomir/waveforms/spikes_on_view.h"

#include <gtest/gtest.h>

#include "pallomir/files/bytes.h"
#include "pallomir/projection/draw_points.h"
#include "support/temporary_folder.h"

namespace pallomir {
namespace {

/// All samples of record r are `height` (r + 1).
std::string Levels(int count, int height) {
  std::string bytes(static_cast<size_t>(count) * kWaveformRecordBytes, '\0');
  auto* to = reinterpret_cast<unsigned char*>(bytes.data());
  for (int r = 0; r < count; ++r)
    for (int i = 0; i < 1024; ++i, to += 2) StoreLittleEndian(to, static_cast<int16_t>(height * (r + 1)));
  return bytes;
}

/// The colour code of the level at `height` of block 6, one pixel per unit.
uint8_t CodeAt(const SpikesOnView& spikes, int height) {
  return spikes.Picture().Pixels().At(20 + 5, 200 + 1200 - height);
}

struct SpikesOnViewTest : ::testing::Test {
  const TemporaryFolder folder;
  const View view = WholeWaveformView(81, 7401);
  SpikesOnView spikes{view};

  void DrawAll() {
    WaveformFile file(folder / "TT1.Ntt.parms");
    while (spikes.Waiting() > 0) spikes.DrawNext(file);
  }
};

TEST_F(SpikesOnViewTest, AreDrawnOneByOneAndAgainFromTheFirst) {
  folder.Put("TT1.waveforms", Levels(3, 10));
  for (const int r : {0, 1, 2}) spikes.Add({r, r + 1});
  WaveformFile file(folder / "TT1.Ntt.parms");
  EXPECT_TRUE(spikes.DrawNext(file));
  EXPECT_EQ(CodeAt(spikes, 10), ColourCode(1));
  EXPECT_EQ(CodeAt(spikes, 20), 0) << "it waits";
  spikes.DrawAgain(view, -2);
  EXPECT_EQ(spikes.Waiting(), 3U);
  EXPECT_EQ(CodeAt(spikes, 10), 0);
  DrawAll();
  EXPECT_EQ(CodeAt(spikes, -20), ColourCode(1));
  EXPECT_EQ(CodeAt(spikes, -60), ColourCode(3));
  spikes.Clear();
  EXPECT_EQ(spikes.Count() + spikes.Waiting() + CodeAt(spikes, -60), 0U);
}

TEST_F(SpikesOnViewTest, MissingWaveformsAreCountedEachTime) {
  folder.Put("TT1.waveforms", Levels(2, 10));
  for (const int r : {0, 7, 1, 2}) spikes.Add({r, 1});
  WaveformFile file(folder / "TT1.Ntt.parms");
  std::vector<bool> stored;
  while (spikes.Waiting() > 0) stored.push_back(spikes.DrawNext(file));
  EXPECT_EQ(stored, (std::vector{true, false, true, false}));
  EXPECT_EQ(spikes.Stored(), 2U);
  EXPECT_EQ(spikes.Count(), 4U);
  folder.Put("TT1.waveforms", Levels(8, 30));
  spikes.DrawAgain(view, 1);
  DrawAll();
  EXPECT_EQ(spikes.Stored(), 4U);
  EXPECT_EQ(CodeAt(spikes, 30), ColourCode(1));
  EXPECT_EQ(CodeAt(spikes, 10), 0) << "of the previous file";
}

}  // namespace
}  // namespace pallomir
