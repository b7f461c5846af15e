#pragma once

#include <filesystem>
#include <memory>
#include <string>

namespace pallomir {

// Components that the analysis commands call. Each is made for one command and released at its end; its windows stay
// open. Every operation throws CommandError if a file cannot be read or written, Interrupted when the user stops it.

/// Rate and occupancy maps.
class MapEngine {
 public:
  virtual ~MapEngine() = default;
  virtual void ComputeRateMap(const std::filesystem::path& clusterFile, const std::filesystem::path& timeFile,
                              const std::filesystem::path& positionFile, const std::filesystem::path& outputFile) = 0;
  virtual void ComputeOccupancyMap(const std::filesystem::path& clusterFile, const std::filesystem::path& positionFile,
                                   const std::filesystem::path& outputFile) = 0;
  /// Writes a file with the rate map's name and the extension ".2DAcorr".
  virtual void ComputeSpatialAutoCorr(const std::filesystem::path& rateMapFile) = 0;
  /// `kind` is "Single" or "2DCorr", `colours` "Color" or "Gray".
  virtual void ShowMap(const std::filesystem::path& mapFile, const std::string& kind, const std::string& colours,
                       const std::string& title) = 0;
};

/// A cluster's autocorrelation and intervals, computed into the output file and shown.
class TrainPlot {
 public:
  virtual ~TrainPlot() = default;
  virtual void PlotAutoCorr(const std::filesystem::path& clusterFile, const std::filesystem::path& timeFile,
                            const std::filesystem::path& outputFile, const std::string& kind,
                            const std::string& title) = 0;
  virtual void PlotLogISI(const std::filesystem::path& clusterFile, const std::filesystem::path& timeFile,
                          const std::filesystem::path& outputFile, const std::string& kind,
                          const std::string& title) = 0;
};

/// A cluster's tuning to head direction.
class DirectionPlot {
 public:
  virtual ~DirectionPlot() = default;
  /// Writes the file with the time file's name + ".dir".
  virtual void ComputeDirection(const std::filesystem::path& timeFile, const std::filesystem::path& positionFile,
                                const std::filesystem::path& clusterFile) = 0;
  virtual void ShowDirection(const std::filesystem::path& directionFile, const std::string& kind,
                             const std::string& title) = 0;
};

/// The input files of a report.
struct ReportFiles {
  std::filesystem::path SpikeFile;
  std::filesystem::path ClusterFile;
  std::filesystem::path TimeFile;
  std::filesystem::path PositionFile;
  std::filesystem::path CenterFile;
  std::filesystem::path NotesFile;
};

/// The one-page report.
class SpikeSource {
 public:
  virtual ~SpikeSource() = default;
  /// `mode` is "Display"; `option` and `number` are passed as false and 0.
  virtual void ShowReport(const ReportFiles& files, const std::string& mode, bool option, double number) = 0;
};

/// Makes the components.
class Components {
 public:
  virtual ~Components() = default;
  virtual std::unique_ptr<MapEngine> MakeMapEngine() = 0;
  virtual std::unique_ptr<TrainPlot> MakeTrainPlot() = 0;
  virtual std::unique_ptr<DirectionPlot> MakeDirectionPlot() = 0;
  virtual std::unique_ptr<SpikeSource> MakeSpikeSource() = 0;
};

}  // namespace pallomir
