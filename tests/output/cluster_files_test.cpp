// The cut as text files: their contents, which of them are written, and that none is ever lost.

#include "pallomir/output/cluster_files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <sstream>

#include "pallomir/clusters/classify.h"
#include "pallomir/files/error.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/platform.h"
#include "pallomir/files/text_header.h"
#include "support/injected_fault.h"
#include "support/recording_world.h"
#include "support/refusal.h"
#include "support/sessions.h"
#include "support/temporary_folder.h"

namespace pallomir {
namespace {

namespace fs = std::filesystem;

const ClusterFileTexts kTexts{"cl-maze1", "0.5", "2e6"};

/// The contents of a file after its header, which must be of the given kind.
std::string BodyOf(const std::string& path, const std::string& kind = "Cl-File") {
  const std::string text = ReadText(path);
  EXPECT_NE(text.find("# Kind: " + kind + "\r\n"), std::string::npos) << path;
  return text.substr(static_cast<size_t>(TextHeaderLength(text)));
}

/// A session with points at 0, 1, 2, ... on MPeak-1, which also are their record numbers, in a folder of its own.
struct Desk {
  TemporaryFolder Folder;
  RecordingWorld World;
  Session Shared;

  explicit Desk(int points = 10) : Shared(SessionWith(Line(points))) {
    Shared.DataDirectory = Folder / ".";
    for (int i = 0; i < points; ++i) {
      Shared.Points.Column(kRecordSlot)[i] = static_cast<float>(i);
      Shared.Points.Stamps()[i] = 1000U + i;
    }
  }
  static std::vector<Vertex> Line(int points) {
    std::vector<Vertex> line;
    for (int i = 0; i < points; ++i) line.push_back({static_cast<float>(i), 0});
    return line;
  }
  /// Cluster c takes the points first..last.
  void Define(int c, int first, int last) {
    AddBoundary(Shared, c, RectangleOf(static_cast<float>(first) - 0.5F, -1, static_cast<float>(last) + 0.5F, 1));
    Shared.ClusterDefined[c] = true;
    ClassifyCluster(Shared, c);
  }
  void Write() { WriteClusterFiles(Shared, World, kTexts); }
  bool Exists(const std::string& name) const { return fs::exists(Folder / name); }
  std::vector<std::string> Files() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(Folder / ".")) names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }
  /// The record numbers in a cluster file, in its order.
  std::vector<int> Records(const std::string& name) const {
    std::istringstream lines(BodyOf(Folder / name));
    std::string line;
    std::getline(lines, line);
    std::getline(lines, line);
    std::vector<int> records;
    while (std::getline(lines, line)) records.push_back(std::stoi(line));
    return records;
  }
};

TEST(ClusterFiles, HoldSeventeenParametersAndTheTimestamp) {
  Desk desk(3);
  desk.Define(7, 1, 1);
  for (int p = 0; p < kParameters; ++p) desk.Shared.Points.Column(p)[1] = static_cast<float>(p) + 0.25F;
  desk.Shared.Points.Column(3)[1] = -1.0F / 3;
  desk.Shared.Points.Column(4)[1] = 1.5e7F;
  desk.Shared.Points.Column(5)[1] = 12345.678F;
  desk.Shared.Points.Stamps()[1] = 123456789012345;
  desk.Shared.Points.Stamps()[2] = 1234567890123456;
  desk.Write();
  EXPECT_EQ(BodyOf(desk.Folder / "cl-maze1.7"),
            "0.5\r\n2000000\r\n"
            "8.25,0.25,1.25,2.25,-0.3333333,1.5E+07,12345.68,6.25,7.25,9.25,10.25,11.25,12.25,13.25,14.25,15.25,16.25,"
            "123456789012345\r\n");
  EXPECT_EQ(BodyOf(desk.Folder / "Undefined_cl-maze1"),
            "0.5\r\n2000000\r\n0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,1000\r\n"
            "2,2,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,1.23456789012346E+15\r\n");
  EXPECT_EQ(desk.World.Log,
            (std::vector<std::string>{"Wrote Cluster 7: 1 points", "Wrote Cluster 0 (Undefined points): 2 points",
                                      "Done Writing CLFiles"}));
  EXPECT_TRUE(desk.World.Boxes.empty());
  EXPECT_FALSE(desk.World.ProgressVisible);
}

TEST(ClusterFiles, ConsistOfTheUnclassifiedFileIfThereAreNoClustersOrPoints) {
  for (const int points : {0, 10}) {
    Desk desk(points);
    for (int run = 0; run < 2; ++run) desk.Write();
    EXPECT_EQ(desk.Files(), std::vector<std::string>{"Undefined_cl-maze1"});
    EXPECT_EQ(desk.Records("Undefined_cl-maze1").size(), static_cast<size_t>(points));
    EXPECT_EQ(desk.World.Log[0], "Wrote Cluster 0 (Undefined points): " + std::to_string(points) + " points");
    EXPECT_EQ(desk.World.Log[1], "Done Writing CLFiles");
  }
}

TEST(ClusterFiles, ReportOverlapsOfNeighbouringNumbersToo) {
  Desk desk;
  desk.Define(1, 0, 3);
  desk.Define(2, 3, 5);
  desk.Define(29, 6, 8);
  desk.Define(30, 7, 9);
  desk.Write();
  ASSERT_GE(desk.World.Log.size(), size_t{2});
  EXPECT_EQ(desk.World.Log[0], "Cluster 1 overlaps with 2: 1 points");
  EXPECT_EQ(desk.World.Log[1], "Cluster 29 overlaps with 30: 2 points");
}

TEST(ClusterFiles, HoldEverySpikeOnceInAClusterThatContainsIt) {
  constexpr int kPoints = 20'000;
  Desk desk(kPoints);
  desk.Define(5, 0, 9'999);
  desk.Define(2, 5'000, 14'999);
  desk.Define(9, 9'000, 9'999);  // with 2 and 5
  desk.Define(12, 30'000, 40'000);
  desk.Write();
  EXPECT_EQ(desk.World.Boxes, std::vector<std::string>{"ERROR: Clusters Overlap"});
  std::map<int, std::string> fileOf;
  size_t line = 0;
  for (const char* report : {"Cluster 2 overlaps with 5: 5000 points", "Cluster 2 overlaps with 9: 1000 points",
                             "Cluster 5 overlaps with 9: 1000 points"})
    EXPECT_EQ(desk.World.Log[line++], report);
  for (const int c : {2, 5, 9, 12, 0}) {
    const std::string name = c == 0 ? "Undefined_cl-maze1" : "cl-maze1." + std::to_string(c);
    const std::vector<int> records = desk.Records(name);
    EXPECT_TRUE(std::is_sorted(records.begin(), records.end()));
    for (const int record : records) {
      EXPECT_TRUE(fileOf.emplace(record, name).second) << record << " is in two files";
      const std::vector<int> clusters = ListOf(desk.Shared, record);
      EXPECT_TRUE(c == 0 ? clusters.empty() : std::find(clusters.begin(), clusters.end(), c) != clusters.end());
    }
    EXPECT_EQ(desk.World.Log[line++], "Wrote Cluster " + std::to_string(c) + (c == 0 ? " (Undefined points): " : ": ") +
                                          std::to_string(records.size()) + " points");
  }
  EXPECT_EQ(fileOf.size(), size_t{kPoints});
}

TEST(ClusterFiles, AreRenamedToOld) {
  Desk desk;
  desk.Define(3, 0, 4);
  desk.Define(4, 5, 6);
  const std::string box = "Pre-existing cluster files have been renamed as OLD";
  desk.Write();
  EXPECT_FALSE(desk.Exists("OLDcl-maze1.3"));
  const std::string first = ReadText(desk.Folder / "cl-maze1.3");
  desk.Define(3, 0, 2);
  desk.Write();
  EXPECT_TRUE(desk.World.Boxes.empty());
  EXPECT_EQ(ReadText(desk.Folder / "OLDcl-maze1.3"), first);
  EXPECT_EQ(desk.Records("cl-maze1.3"), (std::vector<int>{0, 1, 2}));
  desk.Shared.ClusterDefined[4] = false;
  desk.Write();
  EXPECT_EQ(desk.World.Boxes, std::vector<std::string>{box});
  EXPECT_EQ(desk.Records("OLDcl-maze1.3"), (std::vector<int>{0, 1, 2}));
  EXPECT_EQ(desk.Files(),
            (std::vector<std::string>{"OLDcl-maze1.3", "OLDcl-maze1.4", "Undefined_cl-maze1", "cl-maze1.3"}));
}

TEST(ClusterFiles, TemporaryOnesHoldTheCurrentClusterAlone) {
  Desk desk;
  desk.Define(3, 2, 4);
  desk.Define(4, 6, 6);
  desk.Define(5, 6, 6);  // an overlap, which is not reported
  desk.Write();
  desk.World = {};
  const auto before = desk.Files();
  desk.Shared.TemporaryMode = true;
  desk.Shared.CurrentCluster = 3;
  desk.Write();
  EXPECT_EQ(desk.Records("cl-tmp"), (std::vector<int>{2, 3, 4}));
  EXPECT_EQ(BodyOf(desk.Folder / "ttmp", "TFile"), "1002\r\n1003\r\n1004\r\n");
  EXPECT_EQ(desk.Files().size(), before.size() + 2);
  desk.Shared.CurrentCluster = 9;
  desk.Write();
  EXPECT_EQ(BodyOf(desk.Folder / "cl-tmp"), "0.5\r\n2000000\r\n");
  EXPECT_EQ(BodyOf(desk.Folder / "ttmp", "TFile"), "");
  EXPECT_TRUE(desk.World.Boxes.empty());
  EXPECT_EQ(desk.World.Log, (std::vector<std::string>{"Done Writing CLFiles", "Done Writing CLFiles"}));
}

TEST(ClusterFiles, AreRefusedBeforeAnyFileIsTouched) {
  const std::pair<ClusterFileTexts, std::string> cases[] = {
      {{"cl", "start", "1"}, "The start time \"start\" is not a number; no cluster file was written."},
      {{"cl", "1", ""}, "The end time \"\" is not a number; no cluster file was written."},
      {{"", "1", "2"}, "The cluster files need a name; nothing was written."},
  };
  for (const auto& [texts, refusal] : cases) {
    Desk desk;
    EXPECT_EQ(Refusal([&, &typed = texts] { WriteClusterFiles(desk.Shared, desk.World, typed); }), refusal);
    EXPECT_TRUE(desk.Files().empty());
    EXPECT_TRUE(desk.World.Log.empty());
  }
}

/// A desk whose cut has changed since its files were written.
struct WrittenDesk : Desk {
  std::map<std::string, std::string> Before;

  explicit WrittenDesk(int points = 10) : Desk(points) {
    for (const int c : {1, 4, 30}) Define(c, c, c + 1);
    Write();
    for (const std::string& name : Files()) Before[name] = ReadText(Folder / name);
    World = {};
    Define(4, 4, 4);
  }
  void ExpectUntouched() const {
    for (const auto& [name, text] : Before) EXPECT_EQ(ReadText(Folder / name), text) << name;
    EXPECT_EQ(Files().size(), Before.size());
    EXPECT_TRUE(World.Log.empty());
    EXPECT_FALSE(World.ProgressVisible);
  }
};

TEST(ClusterFiles, AreUnchangedWhenTheDiskIsFull) {
  for (const int points : {10, 50'000}) {  // noticed at the end, or while writing
    WrittenDesk desk(points);
    const std::string full = points == 10 ? "cl-maze1.4" : "Undefined_cl-maze1";
    const InjectedFault fault(points == 10 ? 3 : 5, points == 10 ? FileCall::Flush : FileCall::Write);
    EXPECT_EQ(Refusal([&] { desk.Write(); }),
              PathText(desk.Shared.DataDirectory) + "\\" + full +
                  " could not be written completely (No space left on device); the earlier file, if any, is unchanged."
                  "\n\nWritten: nothing.\nNot written: clusters 1, 4, 30 and the unclassified spikes.\n"
                  "All earlier files are unchanged.");
    desk.ExpectUntouched();
  }
}

TEST(ClusterFiles, AreUnchangedWhenTheUserStops) {
  for (const bool temporary : {false, true})
    for (const int pump : {1, 3}) {
      WrittenDesk desk(50'000);
      desk.Shared.TemporaryMode = temporary;
      desk.World.Slow = true;
      desk.World.InterruptAt = pump;
      EXPECT_THROW(desk.Write(), Interrupted);
      desk.ExpectUntouched();
    }
}

TEST(ClusterFiles, TheErrorNamesThoseWrittenAndThoseNot) {
  WrittenDesk desk;
  desk.Folder.Put("OLDcl-maze1.4/in the way", "");
  EXPECT_EQ(Refusal([&] { desk.Write(); }),
            PathText(ClusterFilePath(desk.Shared, "cl-maze1", 4)) + " cannot be renamed to " +
                PathText(OldClusterFilePath(desk.Shared, "cl-maze1", 4)) +
                " (Is a directory).\n\nWritten: cluster 1.\nNot written: clusters 4, 30 and the unclassified spikes.\n"
                "No earlier file is lost: each has its own name or its OLD name.");
  EXPECT_EQ(ReadText(desk.Folder / "OLDcl-maze1.1"), desk.Before["cl-maze1.1"]);
  EXPECT_EQ(desk.Records("cl-maze1.1"), (std::vector<int>{1, 2}));
  for (const std::string name : {"cl-maze1.4", "cl-maze1.30", "Undefined_cl-maze1"})
    EXPECT_EQ(ReadText(desk.Folder / name), desk.Before[name]);
  EXPECT_EQ(desk.World.Log, std::vector<std::string>{"Wrote Cluster 1: 2 points"});
  for (const std::string& name : desk.Files()) EXPECT_FALSE(name.ends_with(".saving~")) << name;
}

TEST(ClusterFiles, ReplaceALinkAndLeaveItsTargetAlone) {
  WrittenDesk desk;
  fs::rename(desk.Folder / "cl-maze1.4", desk.Folder / "elsewhere");
  fs::create_symlink("elsewhere", desk.Folder / "cl-maze1.4");
  desk.Write();
  EXPECT_EQ(ReadText(desk.Folder / "OLDcl-maze1.4"), desk.Before["cl-maze1.4"]);
  EXPECT_EQ(desk.Records("cl-maze1.4"), std::vector<int>{4});
}

}  // namespace
}  // namespace pallomir
