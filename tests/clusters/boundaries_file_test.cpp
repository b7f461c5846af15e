// The boundaries file: what is written is read back, and no file contents break the session.

#include "pallomir/clusters/boundaries_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "pallomir/clusters/autosave.h"
#include "pallomir/clusters/classify.h"
#include "pallomir/clusters/undo.h"
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

/// A session in a folder of its own, with points on a grid.
struct Desk {
  TemporaryFolder Folder;
  RecordingWorld World;
  Session Shared;

  Desk() : Shared(SessionWith(Grid())) { Shared.DataDirectory = Folder / "."; }

  static std::vector<Vertex> Grid() {
    std::vector<Vertex> points;
    for (float x = 0; x <= 100; x += 5)
      for (float y = 0; y <= 100; y += 5) points.push_back({x, y});
    return points;
  }
  void Define(int c, const Boundary& boundary) {
    AddBoundary(Shared, c, boundary);
    Shared.ClusterDefined[c] = true;
    ++Shared.DefinitionCounter;
    ClassifyCluster(Shared, c);
  }
  std::filesystem::path Path(std::string_view name) const { return BoundariesFilePath(Shared, name); }
  void PutRecords(std::string_view name, std::string_view records) {
    Folder.Put(std::string(name) + ".txt", TextHeader("CBFile") + std::string(records));
  }
};

std::string BodyOf(const std::string& path) {
  const std::string text = ReadText(path);
  return text.substr(static_cast<size_t>(TextHeaderLength(text)));
}

std::string Triangle(int c, int x = 0) {
  return std::to_string(c) + "\r\n" + std::to_string(x) + "\r\n1\r\n\"A\"\r\n\"B\"\r\n3\r\n0,0\r\n50,0\r\n0,50\r\n\r\n";
}

TEST(BoundariesFile, IsWrittenLineByLine) {
  Desk desk;
  desk.Define(3, PolygonOf({{12.5, -3}, {1.5e7, 0.1F}, {0, 1.0F / 3}}, 0, kEnergy + 1));
  desk.Define(2, PolygonOf({}, 5, 6));
  desk.Shared.ClusterDefined[9] = true;                  // marked, but without a boundary
  AddBoundary(desk.Shared, 8, RectangleOf(0, 0, 1, 1));  // not marked
  WriteCBFile(desk.Shared, desk.World, desk.Path("cbfile.m1"));
  EXPECT_EQ(BodyOf(desk.Folder / "cbfile.m1.txt"),
            "2\r\n5\r\n6\r\n\"MPeak-6\"\r\n\"MPeak-7\"\r\n0\r\n\r\n"
            "3\r\n0\r\n66\r\n\"MPeak-1\"\r\n\"Energy-2\"\r\n3\r\n12.5,-3\r\n1.5E+07,0.1\r\n0,0.3333333\r\n\r\n");
  EXPECT_EQ(desk.World.Log, std::vector<std::string>{"Wrote CBFile " + PathText(desk.Path("cbfile.m1"))});
}

TEST(BoundariesFile, RestoresAWholeCut) {
  Desk desk;
  std::mt19937 generator(7);
  const auto number = [&] { return static_cast<float>(generator() % 100000) / 997.0F; };
  for (int c = 1; c <= kClusters; ++c) {
    for (int b = 0; b < 1 + c % 21; ++b) {
      std::vector<Vertex> vertices;
      for (size_t k = generator() % 52; k > 0; --k) vertices.push_back({number(), number()});
      desk.Define(c, PolygonOf(vertices, 0, 1));
    }
  }
  ClassifyAllClusters(desk.Shared);
  WriteCBFile(desk.Shared, desk.World, desk.Path("all"));
  Desk other;
  ASSERT_TRUE(ReadCBFile(other.Shared, desk.Path("all")));
  for (int c = 1; c <= kClusters; ++c) {
    const Cluster &written = desk.Shared.Clusters[c], &read = other.Shared.Clusters[c];
    ASSERT_EQ(read.BoundaryCount, written.BoundaryCount);
    for (int b = 0; b < read.BoundaryCount; ++b) {
      ASSERT_EQ(read.Boundaries[b].VertexCount, written.Boundaries[b].VertexCount);
      for (int k = 0; k < read.Boundaries[b].VertexCount; ++k)
        EXPECT_NEAR(read.Boundaries[b].Vertices[k].X, written.Boundaries[b].Vertices[k].X,
                    5.1e-7F * std::max(1.0F, written.Boundaries[b].Vertices[k].X));
    }
  }
  EXPECT_TRUE(other.Shared.ClusterDefined[30]);
  for (size_t i = 0; i < other.Shared.Points.Rows(); ++i)
    ASSERT_EQ(ListOf(other.Shared, i), ListOf(desk.Shared, i)) << "point " << i;
}

TEST(BoundariesFile, EachReaderTreatsScatteredRecordsInItsOwnWay) {
  Desk desk;
  desk.PutRecords("mixed", Triangle(1) + Triangle(2) + Triangle(1, 7));
  ASSERT_TRUE(ReadCBFile(desk.Shared, desk.Path("mixed")));
  EXPECT_EQ(desk.Shared.Clusters[1].BoundaryCount, 1);
  EXPECT_EQ(desk.Shared.Clusters[1].Boundaries[0].XParameter, 7);
  EXPECT_EQ(desk.Shared.DefinitionCounter, 3);

  Desk selected;
  selected.Define(2, RectangleOf(0, 0, 10, 10));
  const Cluster kept = selected.Shared.Clusters[2];
  ByCluster<bool> first{};
  first[1] = true;
  ASSERT_TRUE(ReadSelectedClusters(selected.Shared, desk.Path("mixed"), first));
  EXPECT_EQ(selected.Shared.Clusters[1].BoundaryCount, 2);
  EXPECT_EQ(selected.Shared.Clusters[2], kept);
  EXPECT_EQ(selected.Shared.DefinitionCounter, 2);
}

TEST(BoundariesFile, ReplacesTheNamesOfTheCatalogue) {
  Desk desk;
  desk.PutRecords("named", Triangle(1, 7));
  ASSERT_TRUE(ReadCBFile(desk.Shared, desk.Path("named")));
  EXPECT_EQ(desk.Shared.ParameterNames[7], "A");
  WriteCBFile(desk.Shared, desk.World, desk.Path("again"));
  EXPECT_EQ(BodyOf(desk.Folder / "again.txt"), Triangle(1, 7));
}

TEST(BoundariesFile, TakesNamesFromWholeRecordsOnly) {
  const std::string whole = Triangle(1, 7);
  const size_t names = whole.find("\"A\"");
  const std::string long255(255, 'x');
  const auto named = [&](const std::string& name) { return std::string(whole).replace(names, 3, name); };
  const std::pair<std::string, std::string> cases[] = {
      {whole.substr(0, names + 2), "line 9: the quotes round \"A\" are not closed."},
      {named("\"A\r\n\"B\""), "line 9: the quotes round \"A\" are not closed."},
      {whole.substr(0, names + 6), "line 10: the quotes round \"\" are not closed."},
      {std::string(whole).replace(whole.rfind("50"), 2, "x"), "line 14: \"x\" is not a number."},
      {named("A\"B"), "line 9: \"A\"B\" is not a parameter name."},
      {named("\"A\x1b[1m\""), "line 9: \"A?[1m\" is not a parameter name."},
      {named('"' + long255 + "x\""), "line 9: a parameter name is longer than 255 characters."},
      {named('"' + std::string(1'000'000, 'x') + '"'), "line 9: an item is longer than 4096 characters."},
  };
  for (const auto& [records, fault] : cases) {
    Desk desk;
    const auto before = desk.Shared.ParameterNames;
    desk.PutRecords("bad", records);
    EXPECT_EQ(Refusal([&] { ReadCBFile(desk.Shared, desk.Path("bad")); }).find("bad.txt, " + fault), size_t{0});
    EXPECT_EQ(desk.Shared.ParameterNames, before) << fault;
    desk.PutRecords("good and bad", Triangle(1) + records);
    EXPECT_NE(Refusal([&] { ReadCBFile(desk.Shared, desk.Path("good and bad")); }), "");
    EXPECT_EQ(desk.Shared.ParameterNames[0] + desk.Shared.ParameterNames[7], "A" + before[7]);
  }
  Desk desk;
  desk.PutRecords("long", named('"' + long255 + '"'));
  ASSERT_TRUE(ReadCBFile(desk.Shared, desk.Path("long")));
  EXPECT_EQ(desk.Shared.ParameterNames[7], long255);
}

TEST(BoundariesFile, ReadsSelectedClustersAmongRecordsOfAnyNumber) {
  Desk desk;
  desk.Define(2, RectangleOf(0, 0, 10, 10));
  desk.PutRecords("foreign", Triangle(31) + Triangle(-5) + Triangle(1) + Triangle(400) + Triangle(2) +
                                 "1e300\r\n0\r\n1\r\n\"A\"\r\n\"B\"\r\n0\r\n\r\n" + Triangle(1, 7));
  const Cluster kept = desk.Shared.Clusters[2];
  ByCluster<bool> first{};
  first[1] = true;
  ASSERT_TRUE(ReadSelectedClusters(desk.Shared, desk.Path("foreign"), first));
  EXPECT_EQ(desk.Shared.Clusters[1].BoundaryCount, 2);
  EXPECT_EQ(desk.Shared.Clusters[2], kept);
}

TEST(BoundariesFile, DeletesTheSelectedClustersIfItDisappearedAndUndoRestoresThem) {
  Desk desk;
  desk.Define(4, RectangleOf(0, 0, 10, 10));
  desk.Define(5, RectangleOf(0, 0, 10, 10));
  ByCluster<bool> fourth{};
  fourth[4] = true;
  EXPECT_FALSE(ReadSelectedClusters(desk.Shared, desk.Path("gone"), fourth));
  EXPECT_FALSE(desk.Shared.ClusterDefined[4]);
  EXPECT_TRUE(desk.Shared.ClusterDefined[5]);
  UndoLastChange(desk.Shared);
  EXPECT_EQ(PointsInCluster(desk.Shared, 4), 9);
}

TEST(BoundariesFile, DeletesTheClustersIfItHasNoRecordsOrHeader) {
  Desk desk;
  desk.Define(4, RectangleOf(0, 0, 10, 10));
  desk.PutRecords("empty", "");
  EXPECT_TRUE(ReadCBFile(desk.Shared, desk.Path("empty")));
  EXPECT_FALSE(desk.Shared.ClusterDefined[4]);
  desk.Define(4, RectangleOf(0, 0, 10, 10));
  desk.Define(5, RectangleOf(0, 0, 10, 10));
  desk.Folder.Put("foreign.txt", "1,2,3\r\n");
  ByCluster<bool> fourth{};
  fourth[4] = true;
  EXPECT_FALSE(ReadSelectedClusters(desk.Shared, desk.Path("foreign"), fourth));
  EXPECT_FALSE(desk.Shared.ClusterDefined[4]);
  EXPECT_TRUE(desk.Shared.ClusterDefined[5]);
  EXPECT_FALSE(ReadCBFile(desk.Shared, desk.Path("foreign")));
  EXPECT_EQ(PointsInCluster(desk.Shared, 0), 441);
}

TEST(BoundariesFile, DeletesTheFirstAndTheLastClusterTooIfItHasNoRecords) {
  Desk desk;
  desk.PutRecords("empty", "");
  for (const int c : {1, kClusters}) {
    ByCluster<bool> chosen{};
    chosen[c] = true;
    desk.Define(c, RectangleOf(0, 0, 10, 10));
    EXPECT_TRUE(ReadSelectedClusters(desk.Shared, desk.Path("empty"), chosen));
    EXPECT_FALSE(desk.Shared.ClusterDefined[c]) << c;
    desk.Define(c, RectangleOf(0, 0, 10, 10));
    EXPECT_TRUE(ReadCBFile(desk.Shared, desk.Path("empty")));
    EXPECT_FALSE(desk.Shared.ClusterDefined[c]) << c;
  }
}

TEST(BoundariesFile, NamesFaultsAndUndoRestoresTheCut) {
  std::string manyBoundaries;
  for (int b = 0; b < 22; ++b) manyBoundaries += Triangle(6);
  const std::string undo =
      "\n\nThe boundaries before that are kept but not applied to the points; Undo restores the earlier cut.";
  const struct {
    std::string Records, Fault;
    int Kept;  ///< boundaries of cluster 6 that stay
  } cases[] = {
      {Triangle(6) + Triangle(31), "line 16: cluster 31 is not within 0 to 30.", 1},
      {Triangle(-1), "line 6: cluster -1 is not within 0 to 30.", 0},
      {manyBoundaries, "line 216: cluster 6 has a 22nd boundary.", 21},
      {Triangle(6, 135), "line 7: parameter 135 is not within 0 to 134.", 1},
      {"6\r\n0\r\n1\r\n\"A\"\r\n\"B\"\r\n1000000000\r\n0,0\r\n",
       "line 11: vertex count 1000000000 is not within 0 to 51.", 1},
      {Triangle(6) + "six\r\n", "line 16: \"six\" is not a number.", 1},
      {Triangle(6) + "6\r\n0\r\n1\r\n\"A\"\r\n\"B\"\r\n3\r\n0,0\r\n5,", " ended early, at line 23.", 2},
  };
  for (const auto& bad : cases) {
    Desk desk;
    desk.Define(4, RectangleOf(0, 0, 10, 10));
    desk.PutRecords("bad", bad.Records);
    const std::string refusal = Refusal([&] { ReadCBFile(desk.Shared, desk.Path("bad")); });
    EXPECT_NE(refusal.find(bad.Fault + undo), std::string::npos) << refusal;
    EXPECT_EQ(refusal.find("bad.txt"), size_t{0}) << refusal;
    EXPECT_EQ(desk.Shared.Clusters[6].BoundaryCount, bad.Kept);
    UndoLastChange(desk.Shared);
    EXPECT_EQ(PointsInCluster(desk.Shared, 4), 9);
    EXPECT_EQ(desk.Shared.Clusters[6].BoundaryCount, 0);
  }
}

TEST(BoundariesFile, KeepsTheEarlierFileIfWritingFails) {
  Desk desk;
  desk.Define(4, RectangleOf(0, 0, 10, 10));
  WriteCBFile(desk.Shared, desk.World, desk.Path("cut"));
  const std::string first = ReadText(desk.Folder / "cut.txt");
  {
    const InjectedFault nothingBeside(3, FileCall::Open);
    EXPECT_NE(Refusal([&] { WriteCBFile(desk.Shared, desk.World, desk.Path("cut")); }), "");
  }
  EXPECT_EQ(ReadText(desk.Folder / "cut.txt"), first);
  // A name that is a folder, or in a folder that does not exist.
  std::filesystem::create_directory(desk.Folder / "folder.txt");
  EXPECT_NE(Refusal([&] { WriteCBFile(desk.Shared, desk.World, desk.Path("folder")); }), "");
  EXPECT_NE(Refusal([&] { WriteCBFile(desk.Shared, desk.World, desk.Path("no/where")); }), "");
  EXPECT_EQ(desk.World.Log.size(), size_t{1});
}

TEST(BoundariesFile, KeepsTheEarlierCutAsABackup) {
  Desk desk;
  WriteCBFile(desk.Shared, desk.World, desk.Path("cut"));
  desk.Define(4, RectangleOf(0, 0, 10, 10));
  WriteCBFile(desk.Shared, desk.World, desk.Path("cut"));
  const std::string full = ReadText(desk.Folder / "cut.txt");
  // Write an empty cut twice, as when the program is started and left: the copy still holds the cut.
  const Session empty;
  WriteCBFile(empty, desk.World, desk.Path("cut"));
  WriteCBFile(empty, desk.World, desk.Path("cut"));
  EXPECT_EQ(ReadText(desk.Folder / "cut.txt.bak"), full);
}

TEST(BoundariesFile, ABrokenFileDoesNotReplaceTheBackup) {
  Desk desk;
  desk.Define(4, RectangleOf(0, 0, 10, 10));
  WriteCBFile(desk.Shared, desk.World, desk.Path("cut"));
  const std::string good = ReadText(desk.Folder / "cut.txt");
  WriteCBFile(desk.Shared, desk.World, desk.Path("cut"));
  for (const std::string& broken : {std::string(), std::string("no header"), good.substr(0, good.size() - 9)}) {
    desk.Folder.Put("cut.txt", broken);
    WriteCBFile(desk.Shared, desk.World, desk.Path("cut"));
    EXPECT_EQ(ReadText(desk.Folder / "cut.txt.bak"), good);
  }
}

TEST(Autosave, IsDueAfterFiveMinutesAndAfterMidnight) {
  EXPECT_FALSE(AutosaveDue(1300, 1000));
  EXPECT_TRUE(AutosaveDue(1300.5F, 1000));
  EXPECT_TRUE(AutosaveDue(300, 86390));
  EXPECT_FALSE(AutosaveDue(300.5F, 290));
}

/// A desk whose boundaries files were written at given seconds, each with a different cut.
struct CutDesk : Desk {
  void Write(const std::string& name, int second, int cut) {
    PutRecords(name, cut == 0 ? "" : Triangle(cut));
    std::filesystem::last_write_time(Folder / (name + ".txt"), Began + std::chrono::seconds(second));
  }
  std::string Newest(const std::string& named = "cbfile.m1") const {
    const auto newest = NewerCutThan(Shared, named);
    return newest ? newest->Name : "";
  }
  bool Keeps(const std::string& name) const { return KeepUnreadCut(Shared, Path(name)).has_value(); }

  const std::filesystem::file_time_type Began = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1);
};

TEST(NewestCut, IsNamedIfItIsNotTheOneToBeRead) {
  CutDesk desk;
  EXPECT_EQ(desk.Newest(), "");
  desk.Write("cbfile.tmp", 10, 0);
  EXPECT_EQ(desk.Newest(), "") << "it holds nothing";
  desk.Write("cbfile.m1", 20, 1);
  desk.Folder.Put("newer notes.txt", "not a boundaries file");
  EXPECT_EQ(desk.Newest(), "");
  EXPECT_EQ(desk.Newest("cbfile.m2"), "cbfile.m1");
  desk.Write("cbfile.exit", 30, 1);
  EXPECT_EQ(desk.Newest(), "") << "it is the same cut";
  desk.Write("cbfile.exit", 30, 2);
  EXPECT_EQ(desk.Newest(), "cbfile.exit");
  desk.Write("cbfile.tmp", 40, 3);
  EXPECT_EQ(desk.Newest(), "cbfile.tmp");
  EXPECT_EQ(NewerCutThan(desk.Shared, "cbfile.m1")->Written.size(), std::string("2026-11-22 02:10").size());
  desk.Write("mine", 50, 4);
  EXPECT_EQ(desk.Newest(), "mine");
}

TEST(UnreadCuts, AreNeverRotatedAwayAndDoNotPileUp) {
  CutDesk desk;
  EXPECT_FALSE(desk.Keeps("cbfile.exit"));
  desk.Write("cbfile.m1", 20, 1);
  desk.Write("cbfile.exit", 10, 2);
  EXPECT_FALSE(desk.Keeps("cbfile.exit")) << "the user wrote a newer one";
  desk.Write("cbfile.exit", 30, 1);
  EXPECT_FALSE(desk.Keeps("cbfile.exit")) << "it is the user's cut";
  desk.Write("cbfile.exit", 30, 0);
  EXPECT_FALSE(desk.Keeps("cbfile.exit")) << "it holds nothing";
  EXPECT_FALSE(desk.Keeps("cbfile.m1")) << "files that the user named are not kept aside";

  desk.Write("cbfile.exit", 30, 2);
  desk.Write("cbfile.tmp", 40, 3);
  ASSERT_TRUE(desk.Keeps("cbfile.exit"));
  ASSERT_TRUE(desk.Keeps("cbfile.tmp"));
  const std::vector<std::string> kept = KeptCuts(desk.Shared);
  ASSERT_EQ(kept.size(), size_t{2});
  EXPECT_TRUE(kept[0].starts_with("cbfile.exit.20") && kept[1].starts_with("cbfile.tmp.20"));
  EXPECT_EQ(BodyOf(desk.Path(kept[0])), Triangle(2));
  EXPECT_EQ(desk.Newest(), kept[1]) << "it can be read by that name";

  // The same cut is not kept twice; a different one of the same second does not replace the first.
  desk.Write("cbfile.exit", 30, 2);
  EXPECT_FALSE(desk.Keeps("cbfile.exit"));
  desk.Write("cbfile.exit", 30, 5);
  EXPECT_TRUE(desk.Keeps("cbfile.exit"));
  EXPECT_EQ(BodyOf(desk.Path(kept[0])), Triangle(2));
  EXPECT_EQ(KeptCuts(desk.Shared).size(), size_t{3});
}

}  // namespace
}  // namespace pallomir
