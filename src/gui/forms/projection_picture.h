#pragma once

#include <QFont>
#include <QImage>

#include "gui/controls/save_image.h"
#include "gui/viewers/picture.h"
#include "gui/viewers/point_layer.h"

namespace pallomir {

/// What a picture of the projection shows.
struct PictureOptions {
  QString Title;
  /// Of the plot, in pixels.
  QSize Plot;
  /// Image pixels for each of these.
  double PixelScale = 2;
  GroundOptions Ground;
  PointLayer::Looks Points = PointLayer::Looks::Points;
  DrawSettings Settings;
  QFont Font;
};

/// The projection for a document, on white paper: its axes with numbers and names, boundaries and points, and a legend
/// of the clusters shown, with their numbers of spikes. Only the points are an image.
class ProjectionPicture {
 public:
  ProjectionPicture(const Session& session, PictureOptions options, UniformNumbers& random);

  QImage Image() const;
  /// For a file. The picture must outlive it.
  DrawnPicture Drawn() const;

 private:
  QSize Size() const;
  void PaintOn(QPaintDevice& device, double scale) const;
  void PaintPlot(QPainter& painter) const;
  void PaintLegend(QPainter& painter) const;

  struct LegendLine {
    QColor Colour;
    QString Cluster, Spikes;
  };

  const Session& session_;
  PictureOptions options_;
  /// Of the plot in image pixels.
  View view_;
  QImage points_;
  std::vector<LegendLine> legend_;
  int legendWidth_;
};

}  // namespace pallomir
