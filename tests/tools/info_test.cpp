#include <gtest/gtest.h>

#include <limits>
#include <sstream>

#include "pallomir/session/parameter_catalogue.h"
#include "raw_files.h"
#include "support/refusal.h"
#include "tools/info/describe_file.h"

namespace pallomir {
namespace {

using namespace pallomir::testing;

std::string Describe(const std::string& path) {
  std::ostringstream said;
  ProgressBar progress(said, false);
  return DescribeFile(path, progress);
}

std::string Row(uint64_t stamp, int parameter = 0, float value = 0) {
  std::string row(kRowBytes, '\0');
  Set(row, 0, stamp);
  Set(row, kStampBytes + sizeof(float) * parameter, value);
  return row;
}

TEST(FileInfo, DescribesAFileAndWhatIsOddAboutIt) {
  struct Case {
    const char* Name;
    std::string Bytes;
    std::vector<const char*> Lines;
  };
  const std::string positions = TextHeader("PosFile");
  const float nan = std::numeric_limits<float>::quiet_NaN();
  const Case cases[] = {
      {"TT1.NTT",
       AcquisitionHeader({{"SamplingFrequency", "32000"}, {"ADBitVolts", "1e-8 2.5e-8 \xB5"}}) + Spike(5'000'000, 1) +
           Spike(1'000'000, 2) + "tail",
       {"TT1.NTT: tetrode spikes\n", "records     2 of 304 bytes\n", "SamplingFrequency 32000\n",
        "scale       0.01, 0.025 microvolts per count\n", "time        1000000 to 5000000 microseconds (4.000 s)\n",
        "rate        0.25 spikes per second\n",
        "odd         spikes earlier than the previous one: 1, the first is number 1\n",
        "odd         bytes of an incomplete record at the end: 4\n", "cell 0      2 spikes\n"}},
      {"short.nse", "#### cut", {"single-electrode spikes", "odd         the file ends within its header\n"}},
      {"raw",
       AcquisitionHeader({{"RecordSize", "184"}}) + EventRecord(1, "Epoch\x01 \xC3\xA4\xE4\xC2\x9B") +
           EventRecord(2, "Epoch 1"),
       {"raw: events\n", "event       1 x \"Epoch 1\"\n", "event       1 x \"Epoch\\x01 \xC3\xA4\\xE4\\xC2\\x9B\"\n"}},
      {"v.nvt",
       VideoFrame(0, 1, 1) + VideoFrame(33'000, 0, 0) + VideoFrame(66'000, 1, 1) + VideoFrame(2'066'000, 1, 1),
       {"video frames", "header      none\n", "30.30 frames per second by the median interval\n",
        "odd         frames in which the animal was lost: 1, in runs: 1\n",
        "angles      zero +y, clockwise; too little running to check it against the direction of travel: 0 samples",
        "odd         gaps between frames of more than 0.250 s: 1, the longest 2.000 s\n"}},
      {"n\x1B[31m\nfile.nvt", VideoFrame(0, 1, 1, 0), {"n\\x1B[31m\\x0Afile.nvt: video frames\n", "angles      none;"}},
      {"a.Ntt.parms",
       TextHeader("Parameters", "now") + Row(7, kEnergy + 2, 4) + Row(8, kRecordSlot, 1) + Row(9, kMPeak, nan) + "xx",
       {"rows        3 of 544 bytes\n", "channels    3\n", "parameter 8 does not hold the record number\n",
        "odd         rows with values that are not finite: 1, the first is row 2\n",
        "odd         bytes of an incomplete row at the end: 2\n"}},
      {"parameters",
       TextHeader("Parameters", "now") + Row(7) + Row(8, kRecordSlot, 1),
       {"rows        2 of 544 bytes\n", "channels    none with data\n", "parameter 8 holds the record number\n"}},
      {"a.waveforms",
       std::string(2048, '\0') + std::string(64, '\1') + std::string(2048, '\0'),
       {"records     2 of 2048 bytes\n", "channels    1\n",
        "odd         bytes of an incomplete record at the end: 64\n"}},
      {"Pos.p",
       positions +
           "PixelsPerCm,4\r\n1600000000000000,10,20,90\r\n1600000002000000,0,0,-1\r\n1600000001000000,5,0,-1\r\n" +
           "junk\r\n1600000001500000 2 3\r\n1600000001600000;5;nan;3\r\n1,2,3,4,5\r\n" + std::string(70'000, '1') +
           "\r\n\r\n",
       {"samples     5\n", "scale       4 pixels per cm\n", "(2.000 s)\n",
        "angles      zero +x, counter-clockwise, y up; too little",
        "odd         samples in which the animal was lost: 2\n", "odd         samples without direction: 4\n",
        "odd         lines that are not samples: 3\n",
        "samples earlier than the previous one: 1, the first is number 2\n"}},
      {"videosampling", "\"25\"", {"rate        25 frames per second\n", "odd         only 30 and 60 can be used\n"}},
      {"cbfile.m1",
       TextHeader("CBFile", "2026-11-21 14:03:22") + "1\r\n2\r\n",
       {"a text file of kind CBFile\n", "written     2026-11-21 14:03:22\n", "lines       2 after the header\n"}},
  };
  const TemporaryFolder folder;
  for (const Case& c : cases) {
    const std::string text = Describe(folder.Put(c.Name, c.Bytes));
    for (const char* line : c.Lines) EXPECT_TRUE(text.find(line) != std::string::npos) << line << "is not in\n" << text;
  }
}

TEST(FileInfo, RefusesUnknownFiles) {
  const TemporaryFolder folder;
  const auto failure = [](const std::string& path) { return Refusal([&] { Describe(path); }); };
  const std::string picture = folder.Put("picture.png", "\x89PNG");
  EXPECT_EQ(failure(picture), picture + " is not a file of a known kind.");
  EXPECT_EQ(failure(folder.Put("x.parms", std::string(2000, '\xFF'))),
            "x.parms is not a parameter file: its rows cannot be found.");
  EXPECT_EQ(failure(folder / "none"), folder / "none" + " does not exist.");
}

}  // namespace
}  // namespace pallomir
