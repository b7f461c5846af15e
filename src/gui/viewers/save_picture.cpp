#include "gui/viewers/save_picture.h"

namespace pallomir {

DrawnPicture PictureOf(QCustomPlot& plot, const QString& title) {
  const auto draw = [&plot](QPaintDevice& device) {
    QCPPainter painter;
    painter.begin(&device);
    painter.setMode(QCPPainter::pmVectorized);
    painter.setMode(QCPPainter::pmNoCaching);
    painter.setRenderHint(QPainter::Antialiasing);
    plot.toPainter(&painter, plot.width(), plot.height());
  };
  const auto pixels = [&plot] { return plot.toPixmap(plot.width(), plot.height(), kPictureScale).toImage(); };
  return {title, plot.size(), kPictureScale, pixels, draw};
}

void SavePicture(QCustomPlot& plot, const QString& title, const std::filesystem::path& path,
                 const std::function<void()>& rendered) {
  SaveDrawnPicture(PictureOf(plot, title), path, rendered);
}

}  // namespace pallomir
