#include "gui/viewers/desktop_components.h"

#include "gui/controls/titles.h"
#include "gui/viewers/direction_window.h"
#include "gui/viewers/map_window.h"
#include "gui/viewers/train_windows.h"
#include "pallomir/results/compute_direction.h"
#include "pallomir/results/compute_maps.h"
#include "pallomir/results/compute_trains.h"

namespace pallomir {

namespace {

/// The context in which a component works and opens windows.
struct Desktop {
  const Session& TheSession;
  World& TheWorld;
  Dialogs& TheDialogs;
  QWidget* Parent;

  /// The window owns itself: it is destroyed when closed, or with its parent.
  template <class Window, class... More>
  void Show(const std::string& title, const std::filesystem::path& file, More... more) const {
    const ResultTitle full{QString::fromStdString(title), TetrodeOf(TheSession)};
    (new Window(Parent, TheDialogs, full, file, more...))->Present();
  }
};

class DesktopMapEngine : public MapEngine {
 public:
  explicit DesktopMapEngine(const Desktop& desktop) : desktop_(desktop) {}

  void ComputeRateMap(const std::filesystem::path& clusterFile, const std::filesystem::path& timeFile,
                      const std::filesystem::path& positionFile, const std::filesystem::path& outputFile) override {
    pallomir::ComputeRateMap(desktop_.TheWorld, clusterFile, timeFile, positionFile, outputFile);
  }
  void ComputeOccupancyMap(const std::filesystem::path& clusterFile, const std::filesystem::path& positionFile,
                           const std::filesystem::path& outputFile) override {
    pallomir::ComputeOccupancyMap(desktop_.TheWorld, clusterFile, positionFile, outputFile);
  }
  void ComputeSpatialAutoCorr(const std::filesystem::path& rateMapFile) override {
    pallomir::ComputeSpatialAutoCorr(desktop_.TheWorld, rateMapFile);
  }
  /// The file itself states the kind of its map.
  void ShowMap(const std::filesystem::path& mapFile, const std::string&, const std::string& colours,
               const std::string& title) override {
    desktop_.Show<MapWindow>(title, mapFile, colours == "Gray" ? ColourScale::Gray : ColourScale::Even);
  }

 private:
  Desktop desktop_;
};

class DesktopTrainPlot : public TrainPlot {
 public:
  explicit DesktopTrainPlot(const Desktop& desktop) : desktop_(desktop) {}

  void PlotAutoCorr(const std::filesystem::path& clusterFile, const std::filesystem::path& timeFile,
                    const std::filesystem::path& outputFile, const std::string&, const std::string& title) override {
    ComputeAutoCorr(desktop_.TheWorld, clusterFile, timeFile, outputFile);
    desktop_.Show<AutocorrelationWindow>(title, outputFile);
  }
  void PlotLogISI(const std::filesystem::path& clusterFile, const std::filesystem::path& timeFile,
                  const std::filesystem::path& outputFile, const std::string&, const std::string& title) override {
    ComputeLogISI(desktop_.TheWorld, clusterFile, timeFile, outputFile);
    desktop_.Show<IntervalWindow>(title, outputFile);
  }

 private:
  Desktop desktop_;
};

class DesktopDirectionPlot : public DirectionPlot {
 public:
  explicit DesktopDirectionPlot(const Desktop& desktop) : desktop_(desktop) {}

  void ComputeDirection(const std::filesystem::path& timeFile, const std::filesystem::path& positionFile,
                        const std::filesystem::path& clusterFile) override {
    pallomir::ComputeDirection(desktop_.TheWorld, timeFile, positionFile, clusterFile);
  }
  void ShowDirection(const std::filesystem::path& directionFile, const std::string&,
                     const std::string& title) override {
    desktop_.Show<DirectionWindow>(title, directionFile);
  }

 private:
  Desktop desktop_;
};

}  // namespace

std::unique_ptr<MapEngine> DesktopComponents::MakeMapEngine() {
  return std::make_unique<DesktopMapEngine>(Desktop{session_, world_, dialogs_, parent_});
}

std::unique_ptr<TrainPlot> DesktopComponents::MakeTrainPlot() {
  return std::make_unique<DesktopTrainPlot>(Desktop{session_, world_, dialogs_, parent_});
}

std::unique_ptr<DirectionPlot> DesktopComponents::MakeDirectionPlot() {
  return std::make_unique<DesktopDirectionPlot>(Desktop{session_, world_, dialogs_, parent_});
}

}  // namespace pallomir
