#include "gui/viewers/save_picture.h"

#include "gui/controls/save_image.h"

namespace pallomir {

void SavePicture(QCustomPlot& plot, const QString& title, const std::filesystem::path& path,
                 const std::function<void()>& rendered) {
  const auto draw = [&plot](QPaintDevice& device) {
    QCPPainter painter;
    painter.begin(&device);
    painter.setMode(QCPPainter::pmVectorized);
    painter.setMode(QCPPainter::pmNoCaching);
    painter.setRenderHint(QPainter::Antialiasing);
    plot.toPainter(&painter, plot.width(), plot.height());
  };
  const auto pixels = [&plot] { return plot.toPixmap(plot.width(), plot.height(), kPictureScale).toImage(); };
  SaveDrawnPicture({title, plot.size(), kPictureScale, pixels, draw}, path, rendered);
}

}  // namespace pallomir
