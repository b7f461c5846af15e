#include <gtest/gtest.h>

#include <sstream>

#include "pallomir/files/folder_lock.h"
#include "pallomir/recorded/position_file.h"
#include "raw_files.h"
#include "support/recording_world.h"
#include "support/refusal.h"
#include "tools/import/import_recording.h"

namespace pallomir {
namespace {

using namespace pallomir::testing;

/// A recording with one imported tetrode, and the contents of its folder.
struct SecondImport : ::testing::Test {
  SecondImport() { EXPECT_EQ(Failure(first), ""); }

  std::string Failure(const ImportRequest& request) {
    std::ostringstream said;
    ProgressBar progress(said, false);
    return Refusal([&] { report = ImportRecording(request, progress); });
  }

  /// Every file and its contents.
  std::map<std::string, std::string> Held() const {
    std::map<std::string, std::string> held;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder / "out"))
      held[entry.path().string()] = entry.is_regular_file() ? ReadText(entry.path().string()) : "";
    return held;
  }

  std::string Differs(const std::string& name) const {
    return folder / ("out/" + name) +
           " already exists with other contents; nothing was written. --replace replaces it.";
  }

  TemporaryFolder folder;
  std::string video = folder.Put("VT1.Nvt", VideoFrame(0, 5, 6, 10) + VideoFrame(16'683, 7, 8, 20));
  std::string tetrode1 = folder.Put("TT1.Ntt", AcquisitionHeader() + Spike(100, 5) + Spike(200, 6));
  std::string tetrode2 = folder.Put("TT2.Ntt", AcquisitionHeader() + Spike(300, 7));
  ImportRequest first{.Spikes = tetrode1, .Video = video, .Out = folder / "out", .PixelsPerCm = 3, .Date = "then"};
  ImportReport report;
};

TEST_F(SecondImport, KeepsTheTrackingIfItHasNone) {
  const auto before = Held();
  EXPECT_EQ(Failure({.Spikes = tetrode2, .Out = first.Out}), "");
  auto after = Held();
  for (const auto& [path, bytes] : before) EXPECT_EQ(after[path], bytes) << path;
  EXPECT_EQ(ReadText(folder / "out/VideoSampling"), "60");
  EXPECT_EQ(ParameterRows(folder / "out/TT2/TT2.Ntt.parms").Count(), 1);
}

TEST_F(SecondImport, OfTheSameFilesLeavesThemUnchanged) {
  const auto before = Held();
  first.Date = "now";
  EXPECT_EQ(Failure(first), "");
  EXPECT_EQ(Held(), before);
  EXPECT_EQ(report.Lines().back(),
            "Already there, unchanged: VideoSampling, Pos.p, TT1.Ntt, TT1.waveforms, TT1.Ntt.parms.");
  // One of the files is missing: only that one is made.
  std::filesystem::remove(folder / "out/TT1/TT1.waveforms");
  EXPECT_EQ(Failure(first), "");
  EXPECT_EQ(Held(), before);
}

TEST_F(SecondImport, NeedsReplaceToChangeAFileAndSaysSoBeforeWriting) {
  struct Case {
    const char* Name;
    std::function<void(ImportRequest&)> Change;
  };
  const Case cases[] = {
      {"Pos.p", [&](ImportRequest& r) { r.PixelsPerCm = 4; }},
      {"Pos.p",
       [&](ImportRequest& r) {
         r.Angles = {0, false, false};
       }},
      {"Pos.p", [&](ImportRequest& r) { r.HasAngles = false; }},
      {"Pos.p",
       [&](ImportRequest& r) { r.Video = folder.Put("V2.Nvt", VideoFrame(0, 5, 6) + VideoFrame(16'683, 7, 9)); }},
      {"VideoSampling", [&](ImportRequest& r) { r.Video = folder.Put("V3.Nvt", VideoFrame(0, 5, 6)); }},
      {"TT1/TT1.Ntt", [&](ImportRequest& r) { r.Spikes = folder.Put("b/TT1.Ntt", Spike(100, 9)); }},
      {"TT1/TT1.Ntt.parms", [&](ImportRequest& r) { r.Video.clear(); }},
  };
  for (const Case& c : cases) {
    const auto before = Held();
    ImportRequest request = first;
    c.Change(request);
    EXPECT_EQ(Failure(request), Differs(c.Name));
    EXPECT_EQ(Held(), before) << c.Name;
    request.Replace = true;
    EXPECT_EQ(Failure(request), "");
    EXPECT_NE(Held(), before) << c.Name;
    first.Replace = true;
    EXPECT_EQ(Failure(first), "");
    first.Replace = false;
  }
  // Written by hand.
  for (const char* name : {"out/VideoSampling", "out/Pos.p", "out/TT1/TT1.Ntt.parms", "out/TT1/TT1.waveforms"}) {
    const std::string path = folder / name, bytes = ReadText(path);
    for (const std::string& own : {bytes + "x", bytes.substr(0, bytes.size() - 1), std::string()}) {
      folder.Put(name, own);
      EXPECT_EQ(Failure(first), Differs(name + 4));
      EXPECT_EQ(ReadText(path), own);
    }
    folder.Put(name, bytes);
  }
}

TEST_F(SecondImport, NeverWritesOverALinkAFolderOrASource) {
  struct Case {
    const char* Name;
    std::function<void(const std::string&)> Put;
    std::string Sentence;
  };
  const std::string outside = folder.Put("outside", "not ours"), nothing = " nothing was written.";
  const Case cases[] = {
      {"Pos.p", [&](auto& path) { std::filesystem::create_symlink(outside, path); },
       " is a link, which is neither followed nor replaced;" + nothing},
      {"VideoSampling", [&](auto& path) { std::filesystem::create_symlink(folder / "missing", path); },
       " is a link, which is neither followed nor replaced;" + nothing},
      {"TT1/TT1.Ntt.parms", [](auto& path) { std::filesystem::create_directory(path); }, " is a folder;" + nothing},
      {"TT1/TT1.waveforms", [&](auto& path) { std::filesystem::create_hard_link(video, path); },
       " is " + video + " itself, which would be overwritten;" + nothing + " Name another folder."},
  };
  first.Replace = true;
  for (const Case& c : cases) {
    const std::string path = folder / (std::string("out/") + c.Name);
    std::filesystem::remove_all(path);
    c.Put(path);
    const auto before = Held();
    EXPECT_EQ(Failure(first), path + c.Sentence);
    EXPECT_EQ(Held(), before);
    std::filesystem::remove_all(path);
  }
  EXPECT_EQ(ReadText(outside), "not ours");
  first.Spikes = folder / "out/TT1/TT1.Ntt";
  const std::string spikes = first.Spikes.string();
  EXPECT_EQ(Failure(first),
            spikes + " is " + spikes + " itself, which would be overwritten;" + nothing + " Name another folder.");
  EXPECT_EQ(ReadText(first.Spikes), ReadText(tetrode1));
}

TEST_F(SecondImport, ChangesNothingInAFolderThatIsInUse) {
  const auto before = Held();
  const FolderLock working(folder / "out/TT1");
  EXPECT_EQ(Failure(first), "");  // there is nothing to be changed
  first.PixelsPerCm = 5;
  first.Video.clear();
  first.Replace = true;
  EXPECT_EQ(Failure(first).find("The folder " + folder / "out/TT1" + " is in use by process "), 0);
  for (const auto& [path, bytes] : before) {
    if (std::filesystem::is_regular_file(path)) {
      EXPECT_EQ(ReadText(path), bytes) << path;
    }
  }
}

TEST_F(SecondImport, GivesTheDirectionsThatTheAnalysesTakeFromTheRawFile) {
  RecordingWorld world;
  const std::string frames = VideoFrame(0, 5, 6, 360) + VideoFrame(9, 5, 6, 0) + VideoFrame(5, 5, 6, 361) +
                             VideoFrame(7, 0, 0, 90) + VideoFrame(8, 5, 6, 90);
  first.Video = folder.Put("VT2.Nvt", frames);
  first.Replace = true;
  EXPECT_EQ(Failure(first), "");
  const Positions raw = ReadPositions(first.Video), own = ReadPositions(folder / "out/Pos.p");
  ASSERT_EQ(own.Time, raw.Time);
  for (size_t i = 0; i < raw.Time.size(); ++i)
    EXPECT_TRUE(own.Direction[i] == raw.Direction[i] || (std::isnan(own.Direction[i]) && std::isnan(raw.Direction[i])));
  EXPECT_EQ(raw.Direction[0], 270);
  EXPECT_EQ(raw.Direction[3], 0);
}

}  // namespace
}  // namespace pallomir
