#pragma once

#include <filesystem>

#include "gui/viewers/fitted_rect.h"
#include "gui/viewers/result_window.h"
#include "pallomir/results/direction_file.h"

namespace pallomir {

/// A cell's tuning to direction as a polar plot: 0 degrees to the right, counter-clockwise. The outermost ring is a
/// rate for the tuning curve and the longest dwell of a bin for the dwell curve.
class DirectionWindow : public ResultWindow {
  Q_OBJECT

 public:
  /// Throws CommandError if the direction file cannot be read.
  DirectionWindow(QWidget* parent, Dialogs& dialogs, const ResultTitle& title,
                  const std::filesystem::path& directionFile);

 protected:
  void Restyle(const PlotStyle& style) override;
  QString ReadOut(QPointF at) const override;

 private:
  void MakePlot();
  void DrawGrid();
  QCPCurve* DrawCurve(const DirectionTuning::Bins& values, double outermost);
  QCPItemText* Write(const QString& text, double degrees, double radius);

  DirectionResult result_;
  double outerRate_ = 1;
  FittedRect* rect_ = nullptr;
  QCPCurve* tuning_ = nullptr;
  QCPCurve* dwell_ = nullptr;
  QCPItemLine* vector_ = nullptr;
};

}  // namespace pallomir
