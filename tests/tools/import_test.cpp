#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "pallomir/files/file_reader.h"
#include "pallomir/session/parameter_catalogue.h"
#include "raw_files.h"
#include "support/refusal.h"
#include "tools/import/import_recording.h"

namespace pallomir {
namespace {

using namespace pallomir::testing;

struct RawImport : ::testing::Test {
  TemporaryFolder folder;
  std::ostringstream said;
  ProgressBar progress{said, false};

  ImportReport Run(ImportRequest request) {
    if (request.Out.empty()) request.Out = folder / "out";
    request.Date = "2026-01-01 00:00:00";
    return ImportRecording(request, progress);
  }

  std::string Failure(const ImportRequest& request) {
    return Refusal([&] { Run(request); });
  }
};

TEST_F(RawImport, BothFilesHoldTheSpikesInTimeOrderAndTheCopyIsExact) {
  // More records than fit into one block of reading or writing, in runs and one by one, many with the same timestamp.
  constexpr uint64_t count = 9000;
  std::string raw = AcquisitionHeader();
  std::vector<std::pair<uint64_t, int16_t>> expected;
  for (uint64_t n = 0; n < count; ++n) {
    const uint64_t stamp = 1'700'000'000'000'000 + (n < 6000 ? n * 7919 % 6000 / 3 : n);
    expected.push_back({stamp, static_cast<int16_t>(n)});
    raw += Spike(stamp, static_cast<int16_t>(n));
  }
  std::stable_sort(expected.begin(), expected.end(), [](auto& a, auto& b) { return a.first < b.first; });
  raw += std::string(303, 'x');
  const ImportReport report = Run({.Spikes = folder.Put("TT1.Ntt", raw)});

  EXPECT_EQ(report.Spikes.Count, count);
  EXPECT_GT(report.Spikes.Disordered, 0);
  EXPECT_EQ(report.SpikesTrailing, 303);
  EXPECT_EQ(ReadText(folder / "out/TT1/TT1.Ntt"), raw);
  const ParameterRows rows(folder / "out/TT1/TT1.Ntt.parms");
  const std::string waveforms = ReadText(folder / "out/TT1/TT1.waveforms");
  ASSERT_EQ(rows.Count(), count);
  ASSERT_EQ(waveforms.size(), 2048 * count);
  for (size_t r = 0; r < count; ++r) {
    const auto [stamp, height] = expected[r];
    ASSERT_EQ(rows.Stamp(r), stamp) << r;
    ASSERT_EQ(rows.Value(r, kRecordSlot), r);
    // Heights of up to 9000 times 4 overflow i16 on the fourth wire; the first wire tells the spikes apart.
    ASSERT_EQ(rows.Value(r, kMPeak), height) << r;
    ASSERT_EQ(At<int16_t>(waveforms, 2048 * r + 2 * 8), height) << r;
    ASSERT_EQ(At<int16_t>(waveforms, 2048 * r + 2 * (32 + 8)), static_cast<int16_t>(height * 2)) << r;
  }
  EXPECT_TRUE(std::all_of(waveforms.begin() + 4 * 64, waveforms.begin() + 2048, [](char c) { return c == 0; }));
}

TEST_F(RawImport, AFileWithoutHeaderOrRecordsIsImported) {
  std::string foreign = AcquisitionHeader({{"AcqEntName", "Sc\xFC\xDF\xFF"}, {"WaveformLength", "40"}});
  struct Case {
    const char* Name;
    std::string Bytes;
    size_t Rows;
  };
  const Case cases[] = {{"a.Ntt", AcquisitionHeader(), 0},
                        {"b.Ntt", "", 0},
                        {"c.NTT", Spike(0x100, 5) + Spike(0x200, 6), 2},
                        {"d.ntt", foreign + Spike(1, 5), 1},
                        {"e.Ntt", "####", 0},
                        {"f.Ntt", Spike(uint64_t{1} << 63, 5) + Spike(0, 6), 2}};
  for (const Case& c : cases) {
    Run({.Spikes = folder.Put(c.Name, c.Bytes)});
    const std::string stem(1, c.Name[0]);
    const std::string parameters = folder / ("out/" + stem + "/" + stem + ".Ntt.parms");
    EXPECT_EQ(ParameterRows(parameters).Count(), c.Rows) << c.Name;
    EXPECT_EQ(std::filesystem::file_size(folder / ("out/" + stem + "/" + stem + ".waveforms")), 2048 * c.Rows)
        << c.Name;
    EXPECT_EQ(ReadText(folder / ("out/" + stem + "/" + stem + ".Ntt")), c.Bytes) << c.Name;
    FileReader file(parameters);
    if (c.Rows == 0) {
      EXPECT_EQ(ParameterHeaderLength(file), static_cast<long>(file.Length())) << c.Name;
    }
  }
  EXPECT_EQ(ReadText(folder / "out/VideoSampling"), "30");
  EXPECT_FALSE(std::filesystem::exists(folder / "out/Pos.p"));
}

TEST_F(RawImport, ASingleElectrodeGivesOneChannelUnderTheTetrodeNames) {
  const std::string raw = AcquisitionHeader({{"RecordSize", "112"}}) + Spike(70, 900, kSingleElectrodeLayout);
  Run({.Spikes = folder.Put("SE3.nse", raw)});
  const ParameterRows rows(folder / "out/SE3/SE3.Ntt.parms");
  EXPECT_EQ(rows.Value(0, kMPeak), 900);
  EXPECT_EQ(rows.Value(0, kMPeak + 1), 0);
  EXPECT_EQ(rows.Value(0, kMaxWidth), 12);
  EXPECT_EQ(ReadText(folder / "out/SE3/SE3.nse"), raw);
  EXPECT_EQ(At<int16_t>(ReadText(folder / "out/SE3/SE3.waveforms"), 16), 900);
}

TEST_F(RawImport, SpikesTakeTheirPositionFromTheFramesAroundThem) {
  constexpr uint64_t base = 1'600'000'000'000'000;
  // Out of order; lost from 100 to 132 ms, no frames from 200 to 450 ms (just usable) and to 700.001 ms (too long).
  const std::string video =
      AcquisitionHeader() + VideoFrame(base, 100, 200, 0) + VideoFrame(base + 66'000, 120, 210, 359) +
      VideoFrame(base + 33'000, 110, 200, 450) + VideoFrame(base + 100'000, 0, 0) + VideoFrame(base + 132'000, 0, 0) +
      VideoFrame(base + 166'000, 140, 0, 10) + VideoFrame(base + 200'000, 150, 250, -1) +
      VideoFrame(base + 450'000, 250, 350, 20) + VideoFrame(base + 700'001, 400, 400, 30) + std::string(7, 'v');
  struct Case {
    uint64_t Time;
    float X, Y;
  };
  const Case cases[] = {{0, 100, 200},       {16'500, 105, 200},  {33'000, 110, 200}, {116'000, 130, 105},
                        {325'000, 200, 300}, {450'000, 250, 350}, {450'001, 0, 0},    {700'000, 0, 0},
                        {700'001, 400, 400}, {700'002, 0, 0}};
  std::string spikes = AcquisitionHeader() + Spike(base - 1, 1);
  for (const Case& c : cases) spikes += Spike(base + c.Time, 1);
  const ImportReport report =
      Run({.Spikes = folder.Put("TT1.Ntt", spikes),
           .Video = folder.Put("VT1.nvt", video),
           .Events = folder.Put("Events.Nev", AcquisitionHeader() + EventRecord(2, "b") + EventRecord(1, "a")),
           .PixelsPerCm = 2.5});
  const ParameterRows rows(folder / "out/TT1/TT1.Ntt.parms");
  EXPECT_EQ(rows.Value(0, kPosX), 0);
  for (size_t r = 0; r < std::size(cases); ++r) {
    EXPECT_FLOAT_EQ(rows.Value(r + 1, kPosX), cases[r].X) << cases[r].Time;
    EXPECT_FLOAT_EQ(rows.Value(r + 1, kPosY), cases[r].Y) << cases[r].Time;
  }
  const std::string positions = ReadText(folder / "out/Pos.p");
  EXPECT_EQ(positions.substr(static_cast<size_t>(TextHeaderLength(positions))),
            "PixelsPerCm,2.5\r\n"
            "1600000000000000,100,200,0\r\n1600000000033000,110,200,-1\r\n1600000000066000,120,210,359\r\n"
            "1600000000100000,0,0,-1\r\n1600000000132000,0,0,-1\r\n1600000000166000,140,0,10\r\n"
            "1600000000200000,150,250,-1\r\n1600000000450000,250,350,20\r\n1600000000700001,400,400,30\r\n");
  EXPECT_EQ(ReadText(folder / "out/TT1/Events.Nev"), ReadText(folder / "Events.Nev"));
  EXPECT_EQ(
      report.Lines(),
      (std::vector<std::string>{
          "TT1.Ntt: 11 spikes.",
          "Video: 9 frames; earlier than the previous one: 1, so all were sorted by time; incomplete record dropped at "
          "the end: 7 bytes.",
          "Tracking: 29.41 frames per second; frames lost: 2, in runs: 1; gaps of more than 0.250 s: 1, the longest "
          "0.250 s.",
          "Positions: 7 of 11 spikes lie within tracked time.",
          "Head angles: zero +y, clockwise; too little running to check it against the direction of travel: 3 samples "
          "above 25 pixels/s.",
          "Events: 2 events; earlier than the previous one: 1, copied as they are."}));
}

TEST_F(RawImport, VideoSamplingIsTheNearerRateByTheMedianInterval) {
  struct Case {
    std::vector<uint64_t> Stamps;
    const char* Rate;
  };
  const Case cases[] = {{{5}, "30"},
                        {{5, 5, 5}, "30"},
                        {{0, 26'000, 65'000, 98'000, 9'000'000}, "30"},
                        {{0, 16'683, 33'366, 5'000'000, 5'016'683}, "60"},
                        {{0, 22'223}, "30"},
                        {{0, 22'222}, "60"}};
  for (const Case& c : cases) {
    std::string video = AcquisitionHeader();
    for (const uint64_t stamp : c.Stamps) video += VideoFrame(stamp, 1, 1);
    Run({.Spikes = folder.Put("TT1.Ntt", AcquisitionHeader()), .Video = folder.Put("VT1.Nvt", video), .Replace = true});
    EXPECT_EQ(ReadText(folder / "out/VideoSampling"), c.Rate) << c.Stamps.back();
  }
}

TEST_F(RawImport, AVideoWhoseAnglesAreAllZeroHasNoDirection) {
  Run({.Spikes = folder.Put("TT1.Ntt", AcquisitionHeader()),
       .Video = folder.Put("VT1.Nvt", VideoFrame(1, 3, 4, 0) + VideoFrame(2, 5, 6, 0))});
  EXPECT_TRUE(ReadText(folder / "out/Pos.p").ends_with("# End of header\r\n1,3,4,-1\r\n2,5,6,-1\r\n"));
}

TEST_F(RawImport, FailuresSayWhatAndWhereAndLeaveNoIncompleteFile) {
  const std::string spikes = folder.Put("TT1.Ntt", AcquisitionHeader() + Spike(1, 1));
  const std::string video = folder.Put("VT1.Nvt", AcquisitionHeader() + VideoFrame(1, 1, 1));
  const std::string missing = folder / "none.Ntt";
  EXPECT_EQ(Failure({.Spikes = missing}), missing + " does not exist.");
  EXPECT_EQ(Failure({.Spikes = video}), video + " is not a spike file (.Ntt or .Nse), judging by its extension.");
  EXPECT_EQ(Failure({.Spikes = spikes, .Video = spikes}),
            spikes + " is not a video file (.Nvt), judging by its extension.");
  EXPECT_EQ(
      Failure({.Spikes = folder.Put("TT2.Ntt", AcquisitionHeader({{"RecordSize", "560"}}) + std::string(560, 'x'))}),
      "TT2.Ntt holds records of 560 bytes according to its header; the tetrode spikes of a .Ntt file have 304.");
  EXPECT_EQ(Failure({.Spikes = spikes, .PixelsPerCm = -1}), "Pixels per cm must be a number above 0, not -1.");
  EXPECT_FALSE(std::filesystem::exists(folder / "out"));

  const std::string blocked = folder.Put("file", "not a folder");
  EXPECT_EQ(Failure({.Spikes = spikes, .Out = blocked}).find("The folder " + blocked), 0);
}

}  // namespace
}  // namespace pallomir
