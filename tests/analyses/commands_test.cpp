#include "pallomir/analyses/commands.h"

#include <gtest/gtest.h>

#include <vector>

#include "pallomir/files/error.h"
#include "pallomir/files/platform.h"
#include "support/recording_world.h"
#include "support/refusal.h"
#include "support/temporary_folder.h"

namespace pallomir {
namespace {

/// Components that record the requests they get; paths without the data directory.
struct RecordingComponents : Components {
  std::string Directory;
  std::vector<std::string> Calls;

  void Add(std::string call) {
    for (size_t at; (at = call.find(Directory)) != std::string::npos;)
      call = call.substr(0, at) + 'D' + call.substr(at + Directory.size());
    Calls.push_back(call);
  }

  using Path = const std::filesystem::path&;
  static std::string Texts(std::initializer_list<std::filesystem::path> paths) {
    std::string texts;
    for (Path path : paths) texts += (texts.empty() ? "" : " ") + PathText(path);
    return texts;
  }

  struct Map : MapEngine {
    explicit Map(RecordingComponents& to) : To(to) {}
    void ComputeRateMap(Path c, Path t, Path p, Path o) override { To.Add("rate " + Texts({c, t, p, o})); }
    void ComputeOccupancyMap(Path c, Path p, Path o) override { To.Add("occupancy " + Texts({c, p, o})); }
    void ComputeSpatialAutoCorr(Path m) override { To.Add("correlate " + PathText(m)); }
    void ShowMap(Path m, const std::string& k, const std::string& c, const std::string& t) override {
      To.Add("show " + PathText(m) + " " + k + " " + c + " " + t);
    }
    RecordingComponents& To;
  };
  struct Train : TrainPlot {
    explicit Train(RecordingComponents& to) : To(to) {}
    void PlotAutoCorr(Path c, Path t, Path o, const std::string& k, const std::string& title) override {
      To.Add("train " + Texts({c, t, o}) + " " + k + " " + title);
    }
    void PlotLogISI(Path c, Path t, Path o, const std::string& k, const std::string& title) override {
      To.Add("isi " + Texts({c, t, o}) + " " + k + " " + title);
    }
    RecordingComponents& To;
  };
  struct Direction : DirectionPlot {
    explicit Direction(RecordingComponents& to) : To(to) {}
    void ComputeDirection(Path t, Path p, Path c) override { To.Add("direction " + Texts({t, p, c})); }
    void ShowDirection(Path d, const std::string& k, const std::string& t) override {
      To.Add("show " + PathText(d) + " " + k + " " + t);
    }
    RecordingComponents& To;
  };
  struct Source : SpikeSource {
    explicit Source(RecordingComponents& to) : To(to) {}
    void ShowReport(const ReportFiles& f, const std::string& mode, bool option, double number) override {
      To.Add("report " + Texts({f.SpikeFile, f.ClusterFile, f.TimeFile, f.PositionFile, f.CenterFile, f.NotesFile}) +
             " " + mode + (option ? " true " : " false ") + std::to_string(number));
    }
    RecordingComponents& To;
  };

  std::unique_ptr<MapEngine> MakeMapEngine() override { return std::make_unique<Map>(*this); }
  std::unique_ptr<TrainPlot> MakeTrainPlot() override { return std::make_unique<Train>(*this); }
  std::unique_ptr<DirectionPlot> MakeDirectionPlot() override { return std::make_unique<Direction>(*this); }
  std::unique_ptr<SpikeSource> MakeSpikeSource() override { return std::make_unique<Source>(*this); }
};

struct AnalysisCommands : ::testing::Test {
  AnalysisCommands() {
    folder.Put("TT1/TT1.Ntt", "spikes");
    folder.Put("Pos.p", "positions");
    parts.Directory = folder / "TT1";
    session.DataDirectory = parts.Directory;
    session.File.Path = folder / "TT1/TT1.Ntt.parms";
    session.CurrentCluster = 7;
  }

  const TemporaryFolder folder;
  Session session;
  RecordingWorld world;
  RecordingComponents parts;
  const AnalysisTools tools = {world, parts, [this] {
                                 EXPECT_TRUE(session.TemporaryMode);
                                 parts.Calls.push_back("write");
                               }};
  using Calls = std::vector<std::string>;
};

TEST_F(AnalysisCommands, PassTheirFilesOnInOrder) {
  ShowRateMap(session, tools, "Pos.p", "Gray");
  ShowOccupancyMap(session, tools, "Pos.p");
  ShowSpatialAutoCorr(session, tools, "Pos.p", "Color");
  ShowAutoCorr(session, tools);
  ShowLogISI(session, tools);
  ShowDirection(session, tools, "TT1\\..\\Pos.p");  // appended as typed
  ShowReport(session, tools, "Pos.p");
  EXPECT_EQ(parts.Calls,
            (Calls{"write", "rate D\\cl-tmp D\\ttmp D\\..\\Pos.p D\\tmp.rmap", "show D\\tmp.rmap Single Gray Cluster 7",
                   "write", "occupancy D\\cl-tmp D\\..\\Pos.p D\\tmp.occ", "show D\\tmp.occ Single Color Occupancy",
                   "write", "rate D\\cl-tmp D\\ttmp D\\..\\Pos.p D\\tmp.rmap", "correlate D\\tmp.rmap",
                   "show D\\tmp.2DAcorr 2DCorr Color Cluster 7", "write",
                   "train D\\cl-tmp D\\ttmp D\\tmp.acorr Single Cluster 7", "write",
                   "isi D\\cl-tmp D\\ttmp D\\tmp.isi Single Cluster 7", "write",
                   "direction D\\ttmp D\\..\\TT1\\..\\Pos.p D\\cl-tmp", "show D\\ttmp.dir Single Cluster 7", "write",
                   "report D/TT1.Ntt D\\cl-tmp D\\ttmp D\\..\\Pos.p D\\..\\CenterCoords D\\ClNotes Display false "
                   "0.000000"}));
  EXPECT_EQ(world.Log, (Calls{"Done Rate Map", "Done 2DAutoCorr", "Done Autocorr", "Done LogISI", "Exit"}));
  EXPECT_FALSE(session.TemporaryMode);
}

TEST_F(AnalysisCommands, WithoutAClusterNothingIsWritten) {
  session.CurrentCluster = 0;
  const std::string refusal = "Error.  Must Choose a cluster first.";
  EXPECT_EQ(Refusal([&] { ShowRateMap(session, tools, "Pos.p", "Color"); }), refusal);
  EXPECT_EQ(Refusal([&] { ShowSpatialAutoCorr(session, tools, "Pos.p", "Color"); }), refusal);
  EXPECT_EQ(Refusal([&] { ShowAutoCorr(session, tools); }), refusal);
  EXPECT_EQ(Refusal([&] { ShowLogISI(session, tools); }), refusal);
  EXPECT_EQ(Refusal([&] { ShowDirection(session, tools, "Pos.p"); }), refusal);
  EXPECT_EQ(Refusal([&] { ShowReport(session, tools, "Pos.p"); }), refusal);
  EXPECT_EQ(Refusal([&] { ShowAvgWaveforms(session, tools); }), refusal);
  EXPECT_TRUE(parts.Calls.empty());
  EXPECT_FALSE(session.TemporaryMode);
  ShowOccupancyMap(session, tools, "Pos.p");
  EXPECT_EQ(parts.Calls.size(), 3U);
}

TEST_F(AnalysisCommands, LeaveTheTemporaryModeOnWhenTheyEndEarly) {
  const std::string absent = PathText(session.DataDirectory) + "\\..\\gone.p is not present";
  const std::string spikes = "Error.  Neuralynx .Ntt spike file is not present.";
  const std::tuple<std::function<void()>, std::string> cases[] = {
      {[&] { ShowRateMap(session, tools, "", "Color"); }, "Must specify a Position File"},
      {[&] { ShowOccupancyMap(session, tools, "gone.p"); }, absent},
      {[&] { ShowSpatialAutoCorr(session, tools, "gone.p", "Color"); }, absent},
      {[&] { ShowDirection(session, tools, ""); }, "Must specify a Position File"},
      {[&] { ShowReport(session, tools, "gone.p"); }, absent},
      {[&] {
         folder.Put("TT1/TT1.Ntt", "");
         ShowReport(session, tools, "Pos.p");
       },
       spikes},
      {[&] { ShowAvgWaveforms(session, tools); }, "Error.  The .Ntt Neuralynx spike file is not present"}};
  for (const auto& [command, refusal] : cases) {
    session.TemporaryMode = false;
    parts.Calls.clear();
    EXPECT_EQ(Refusal(command), refusal);
    EXPECT_EQ(parts.Calls, Calls{"write"}) << refusal;
    EXPECT_TRUE(session.TemporaryMode) << refusal;
  }
  ShowAutoCorr(session, tools);
  EXPECT_FALSE(session.TemporaryMode);
}

TEST(SpikeFilePath, IsDerivedFromTheParameterFile) {
  EXPECT_EQ(SpikeFilePath("D/TT1.Ntt.parms"), "D/TT1.Ntt");
  EXPECT_EQ(SpikeFilePath("D/TT1.Ntt"), "D/TT1.Ntt");
}

}  // namespace
}  // namespace pallomir
