#pragma once

#include <filesystem>

#include "gui/viewers/colour_scales.h"
#include "gui/viewers/fitted_rect.h"
#include "gui/viewers/result_window.h"
#include "pallomir/results/map_file.h"

namespace pallomir {

/// A map as the camera sees it: square bins, y downwards, unvisited bins white.
class MapWindow : public ResultWindow {
  Q_OBJECT

 public:
  /// `colours` is the initial scale. Throws CommandError if the map file cannot be read.
  MapWindow(QWidget* parent, Dialogs& dialogs, const ResultTitle& title, const std::filesystem::path& mapFile,
            ColourScale colours);

 protected:
  void Restyle(const PlotStyle& style) override;
  QString ReadOut(QPointF at) const override;

 private:
  MapWindow(QWidget* parent, Dialogs& dialogs, const ResultTitle& title, const std::filesystem::path& mapFile,
            ColourScale colours, MapResult result);

  void MakePlot();
  void FillColours();
  void MarkLagZero();
  void MakeChoice(ColourScale colours);
  void Choose(ColourScale colours);

  /// Converts a length in pixels to axis units.
  double InUnits(double pixels) const { return result_.PixelsPerCm > 0 ? pixels / result_.PixelsPerCm : pixels; }
  QString LengthUnit() const { return result_.PixelsPerCm > 0 ? "cm" : "pixels"; }

  MapResult result_;
  FittedRect* rect_ = nullptr;
  ScaleBeside* scale_ = nullptr;
  QCPColorMap* colours_ = nullptr;
};

}  // namespace pallomir
