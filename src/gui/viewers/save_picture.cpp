#include "gui/viewers/save_picture.h"

#include <QPdfWriter>
#include <QSvgGenerator>

#include "gui/controls/save_image.h"
#include "pallomir/files/error.h"
#include "pallomir/files/platform.h"

namespace pallomir {

namespace {

constexpr int kDotsPerInch = 96;  // one dot per pixel of the plot

void Paint(QCustomPlot& plot, QPaintDevice& device) {
  QCPPainter painter;
  painter.begin(&device);
  painter.setMode(QCPPainter::pmVectorized);
  painter.setMode(QCPPainter::pmNoCaching);
  painter.setRenderHint(QPainter::Antialiasing);
  plot.toPainter(&painter, plot.width(), plot.height());
}

QImage Picture(QCustomPlot& plot, const QString& title) {
  QImage image = plot.toPixmap(plot.width(), plot.height(), kPictureScale).toImage();
  const int dotsPerMetre = qRound(kPictureScale * kDotsPerInch / 0.0254);
  image.setDotsPerMeterX(dotsPerMetre);
  image.setDotsPerMeterY(dotsPerMetre);
  image.setText("Title", title);
  return image;
}

QByteArray Svg(QCustomPlot& plot, const QString& title) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  QSvgGenerator generator;
  generator.setOutputDevice(&buffer);
  generator.setResolution(kDotsPerInch);
  generator.setSize(plot.size());
  generator.setViewBox(plot.rect());
  generator.setTitle(title);
  Paint(plot, generator);
  return bytes;
}

QByteArray Pdf(QCustomPlot& plot, const QString& title) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setResolution(kDotsPerInch);
  writer.setPageSize(QPageSize(QSizeF(plot.size()) / kDotsPerInch, QPageSize::Inch, {}, QPageSize::ExactMatch));
  writer.setPageMargins({});
  writer.setTitle(title);
  Paint(plot, writer);
  return bytes;
}

}  // namespace

void SavePicture(QCustomPlot& plot, const QString& title, const std::filesystem::path& path,
                 const std::function<void()>& rendered) {
  const std::string name = NameText(path);
  const QString ending = QFileInfo(QString::fromStdString(name)).suffix().toLower();
  QByteArray bytes;
  QImage picture;
  if (ending == "png")
    picture = Picture(plot, title);
  else if (ending == "svg")
    bytes = Svg(plot, title);
  else if (ending == "pdf")
    bytes = Pdf(plot, title);
  else
    throw CommandError(ErrorKind::Refused,
                       name + " is not a picture format that can be written: use a name ending in .png, .svg or .pdf.");
  rendered();
  SavePictureBytes(picture.isNull() ? bytes : PngOf(picture), path);
}

}  // namespace pallomir
