#include "pallomir/recorded/waveform_file.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "pallomir/files/bytes.h"
#include "support/refusal.h"
#include "support/temporary_folder.h"

namespace pallomir {
namespace {

/// Value i of record r is 100 r - i.
std::string Records(int count) {
  std::string bytes(static_cast<size_t>(count) * kWaveformRecordBytes, '\0');
  for (int r = 0; r < count; ++r)
    for (int i = 0; i < 1024; ++i)
      StoreLittleEndian(reinterpret_cast<unsigned char*>(bytes.data()) + 2048 * r + 2 * i,
                        static_cast<int16_t>(100 * r - i));
  return bytes;
}

TEST(WaveformFile, NameReplacesTheLastNineCharacters) {
  EXPECT_EQ(WaveformFilePath("C:/rat/rat1.Ntt.parms"), "C:/rat/rat1.waveforms");
  EXPECT_EQ(WaveformFilePath("a.b.Ntt.parms"), "a.b.waveforms");
  EXPECT_EQ(WaveformFilePath("tetrode.parms"), "tetrwaveforms") << "whatever they are";
  for (const char* none : {"rat1.Ntt", "rat1.Ntt.Parms", "rat1", "", "a.parms"}) EXPECT_EQ(WaveformFilePath(none), "");
}

TEST(WaveformFile, ReadsTheRecordAskedForAndNoneBeyondTheFile) {
  const TemporaryFolder folder;
  folder.Put("rat1.waveforms", Records(3) + std::string(2047, 'x'));
  WaveformFile file(folder / "rat1.Ntt.parms");
  EXPECT_EQ(file.RecordCount(), 3);
  WaveformRecord record{};
  for (const int n : {2, 0, 1}) {
    ASSERT_TRUE(file.Read(n, record));
    EXPECT_EQ(record[0], 100 * n);
    EXPECT_EQ(record[5 * 32 + 7], 100 * n - (5 * 32 + 7));
    EXPECT_EQ(record[1023], 100 * n - 1023);
  }
  const WaveformRecord before = record;
  for (const int64_t n : {int64_t{3}, int64_t{-1}, int64_t{4'000'000'000}, INT64_MAX, INT64_MIN}) {
    EXPECT_FALSE(file.Read(n, record)) << n;
    EXPECT_EQ(record, before);
  }
}

TEST(WaveformFile, ReadsBeyondFourGigabytes) {
  const TemporaryFolder folder;
  const std::string path = folder.Put("big.waveforms", "");
  std::filesystem::resize_file(path, 10'000'000'000);  // a sparse file
  std::fstream(path, std::ios::in | std::ios::out | std::ios::binary).seekp(2048 * 4'500'000LL + 62) << "\x34\x12";
  WaveformFile file(folder / "big.Ntt.parms");
  WaveformRecord record{};
  ASSERT_TRUE(file.Read(4'500'000, record));
  EXPECT_EQ(record[31], 0x1234);
}

TEST(WaveformFile, SaysWhyThereIsNone) {
  const TemporaryFolder folder;
  EXPECT_EQ(Refusal([&] { WaveformFile(folder / "rat1.Ntt.parms"); }), folder / "rat1.waveforms" + " does not exist.");
  EXPECT_EQ(Refusal([&] { WaveformFile(folder / "rat1.Ntt"); }),
            "There is no waveform file for rat1.Ntt: that name does not end in \".Ntt.parms\".");
}

}  // namespace
}  // namespace pallomir
