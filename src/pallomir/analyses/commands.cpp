#include "pallomir/analyses/commands.h"

#include "pallomir/analyses/center_file.h"
#include "pallomir/files/file_fault.h"
#include "pallomir/files/file_utility.h"
#include "pallomir/files/platform.h"
#include "pallomir/notes/cluster_notes.h"
#include "pallomir/output/cluster_files.h"

namespace pallomir {

namespace {

void RequireCluster(const Session& session) {
  if (session.CurrentCluster == 0) throw CommandError(ErrorKind::NotReady, "Error.  Must Choose a cluster first.");
}

void WriteTemporaryFiles(Session& session, const AnalysisTools& tools) {
  session.TemporaryMode = true;
  tools.WriteClusterFiles();
}

std::filesystem::path PositionFile(const Session& session, const std::string& name) {
  if (name.empty()) throw CommandError(ErrorKind::Refused, "Must specify a Position File");
  std::filesystem::path path = PathIn(session.DataDirectory, "..\\" + name);
  if (!FileUtility::FileExists(path)) throw NotPresent(path);
  return path;
}

std::string Title(const Session& session) {
  return "Cluster " + std::to_string(session.CurrentCluster);
}

void End(Session& session, const AnalysisTools& tools, const char* line) {
  session.TemporaryMode = false;
  tools.Outside.AppendMessage(line);
}

using PlotOperation = void (TrainPlot::*)(const std::filesystem::path&, const std::filesystem::path&,
                                          const std::filesystem::path&, const std::string&, const std::string&);

void PlotTrain(Session& session, const AnalysisTools& tools, PlotOperation plot, const char* file, const char* done) {
  RequireCluster(session);
  WriteTemporaryFiles(session, tools);
  const auto component = tools.Parts.MakeTrainPlot();
  ((*component).*plot)(TemporaryClusterFilePath(session), TemporaryTimeFilePath(session),
                       PathIn(session.DataDirectory, file), "Single", Title(session));
  End(session, tools, done);
}

/// Computes the rate map of the current cluster into the file `map`; returns what shows it.
std::unique_ptr<MapEngine> MakeRateMap(Session& session, const AnalysisTools& tools, const std::string& positionName,
                                       const std::filesystem::path& map) {
  const std::filesystem::path positions = PositionFile(session, positionName);
  auto engine = tools.Parts.MakeMapEngine();
  engine->ComputeRateMap(TemporaryClusterFilePath(session), TemporaryTimeFilePath(session), positions, map);
  return engine;
}

}  // namespace

void ShowRateMap(Session& session, const AnalysisTools& tools, const std::string& positionName,
                 const std::string& colours) {
  RequireCluster(session);
  WriteTemporaryFiles(session, tools);
  const std::filesystem::path map = PathIn(session.DataDirectory, "tmp.rmap");
  const auto engine = MakeRateMap(session, tools, positionName, map);
  engine->ShowMap(map, "Single", colours, Title(session));
  End(session, tools, "Done Rate Map");
}

void ShowOccupancyMap(Session& session, const AnalysisTools& tools, const std::string& positionName) {
  WriteTemporaryFiles(session, tools);
  const std::filesystem::path positions = PositionFile(session, positionName);
  const std::filesystem::path map = PathIn(session.DataDirectory, "tmp.occ");
  const auto engine = tools.Parts.MakeMapEngine();
  engine->ComputeOccupancyMap(TemporaryClusterFilePath(session), positions, map);
  engine->ShowMap(map, "Single", "Color", "Occupancy");
  session.TemporaryMode = false;
}

void ShowSpatialAutoCorr(Session& session, const AnalysisTools& tools, const std::string& positionName,
                         const std::string& colours) {
  RequireCluster(session);
  WriteTemporaryFiles(session, tools);
  const std::filesystem::path map = PathIn(session.DataDirectory, "tmp.rmap");
  const auto engine = MakeRateMap(session, tools, positionName, map);
  engine->ComputeSpatialAutoCorr(map);
  engine->ShowMap(FileUtility::RemoveExtension(map) += ".2DAcorr", "2DCorr", colours, Title(session));
  End(session, tools, "Done 2DAutoCorr");
}

void ShowAutoCorr(Session& session, const AnalysisTools& tools) {
  PlotTrain(session, tools, &TrainPlot::PlotAutoCorr, "tmp.acorr", "Done Autocorr");
}

void ShowLogISI(Session& session, const AnalysisTools& tools) {
  PlotTrain(session, tools, &TrainPlot::PlotLogISI, "tmp.isi", "Done LogISI");
}

void ShowDirection(Session& session, const AnalysisTools& tools, const std::string& positionName) {
  RequireCluster(session);
  WriteTemporaryFiles(session, tools);
  const std::filesystem::path positions = PositionFile(session, positionName);
  const std::filesystem::path times = TemporaryTimeFilePath(session);
  const auto plot = tools.Parts.MakeDirectionPlot();
  plot->ComputeDirection(times, positions, TemporaryClusterFilePath(session));
  std::filesystem::path directions = times;
  plot->ShowDirection(directions += ".dir", "Single", Title(session));
  End(session, tools, "Exit");
}

void ShowReport(Session& session, const AnalysisTools& tools, const std::string& positionName) {
  RequireCluster(session);
  WriteTemporaryFiles(session, tools);
  const ReportFiles files =
      ReportFilesOf(session, positionName, TemporaryClusterFilePath(session), TemporaryTimeFilePath(session));
  tools.Parts.MakeSpikeSource()->ShowReport(files, "Display", false, 0);
  session.TemporaryMode = false;
}

ReportFiles ReportFilesOf(const Session& session, const std::string& positionName,
                          const std::filesystem::path& clusterFile, const std::filesystem::path& timeFile) {
  const std::filesystem::path positions = PositionFile(session, positionName);
  const std::filesystem::path spikes = SpikeFilePath(session.File.Path);
  if (!FileUtility::FileExists(spikes) || FileUtility::FileLength(spikes) < 1)
    throw CommandError(ErrorKind::Missing, "Error.  Neuralynx .Ntt spike file is not present.");
  return {spikes, clusterFile, timeFile, positions, CenterFilePath(session), NotesFilePath(session)};
}

void ShowAvgWaveforms(Session& session, const AnalysisTools& tools) {
  RequireCluster(session);
  WriteTemporaryFiles(session, tools);
  if (!FileUtility::FileExists(
          PlatformPath(R"(C:\Silicon probe waveform testing\waveform_files\allRawWaveforms_A.waveforms)")))
    throw CommandError(ErrorKind::Missing, "Error.  The .Ntt Neuralynx spike file is not present");
}

std::filesystem::path SpikeFilePath(const std::filesystem::path& parameterFile) {
  constexpr size_t kParms = 6;
  if (FileUtility::GetExtension(parameterFile) != "parms") return parameterFile;
  return parameterFile.native().substr(0, parameterFile.native().size() - kParms);
}

}  // namespace pallomir
