#pragma once

#include <memory>
#include <string>

namespace pallomir {

// Components that the analysis commands call. Each is made for one command and released at its end; its windows stay
// open. Every operation throws CommandError if a file cannot be read or written, Interrupted when the user stops it.

/// Rate and occupancy maps.
class MapEngine {
 public:
  virtual ~MapEngine() = default;
  virtual void ComputeRateMap(const std::string& clusterFile, const std::string& timeFile,
                              const std::string& positionFile, const std::string& outputFile) = 0;
  virtual void ComputeOccupancyMap(const std::string& clusterFile, const std::string& positionFile,
                                   const std::string& outputFile) = 0;
  /// Writes a file with the rate map's name and the extension ".2DAcorr".
  virtual void ComputeSpatialAutoCorr(const std::string& rateMapFile) = 0;
  /// `kind` is "Single" or "2DCorr", `colours` "Color" or "Gray".
  virtual void ShowMap(const std::string& mapFile, const std::string& kind, const std::string& colours,
                       const std::string& title) = 0;
};

/// A cluster's autocorrelation and intervals, computed into the output file and shown.
class TrainPlot {
 public:
  virtual ~TrainPlot() = default;
  virtual void PlotAutoCorr(const std::string& clusterFile, const std::string& timeFile, const std::string& outputFile,
                            const std::string& kind, const std::string& title) = 0;
  virtual void PlotLogISI(const std::string& clusterFile, const std::string& timeFile, const std::string& outputFile,
                          const std::string& kind, const std::string& title) = 0;
};

/// A cluster's tuning to head direction.
class DirectionPlot {
 public:
  virtual ~DirectionPlot() = default;
  /// Writes the file with the time file's name + ".dir".
  virtual void ComputeDirection(const std::string& timeFile, const std::string& positionFile,
                                const std::string& clusterFile) = 0;
  virtual void ShowDirection(const std::string& directionFile, const std::string& kind, const std::string& title) = 0;
};

/// The input files of a report.
struct ReportFiles {
  std::string SpikeFile;
  std::string ClusterFile;
  std::string TimeFile;
  std::string PositionFile;
  std::string CenterFile;
  std::string NotesFile;
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
