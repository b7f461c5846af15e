#include "gui/controls/save_image.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFileInfo>
#include <QPageSize>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <chrono>
#include <future>

#include "pallomir/files/error.h"
#include "pallomir/files/platform.h"
#include "pallomir/files/save_file.h"

namespace pallomir {

namespace {

CommandError NoMemory() {
  return {ErrorKind::NoMemory, "There is not enough memory for the picture."};
}

constexpr int kDotsPerInch = 96;

QImage PixelsOf(const DrawnPicture& picture) {
  QImage image = picture.Pixels();
  const int dotsPerMetre = qRound(picture.PixelScale * kDotsPerInch / 0.0254);
  image.setDotsPerMeterX(dotsPerMetre);
  image.setDotsPerMeterY(dotsPerMetre);
  image.setText("Title", picture.Title);
  return image;
}

QByteArray SvgOf(const DrawnPicture& picture) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  QSvgGenerator generator;
  generator.setOutputDevice(&buffer);
  generator.setResolution(kDotsPerInch);
  generator.setSize(picture.Size);
  generator.setViewBox(QRect(QPoint(), picture.Size));
  generator.setTitle(picture.Title);
  picture.Draw(generator);
  return bytes;
}

QByteArray PdfOf(const DrawnPicture& picture) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setResolution(kDotsPerInch);
  writer.setPageSize(QPageSize(QSizeF(picture.Size) / kDotsPerInch, QPageSize::Inch, {}, QPageSize::ExactMatch));
  writer.setPageMargins({});
  writer.setTitle(picture.Title);
  picture.Draw(writer);
  return bytes;
}

}  // namespace

QImage MakeImage(QSize size, QImage::Format format) {
  QImage image(size, format);
  if (image.isNull()) throw NoMemory();
  return image;
}

QByteArray PngOf(const QImage& image) {
  std::future<QByteArray> encoded = std::async(std::launch::async, [&image] {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!image.save(&buffer, "PNG")) throw NoMemory();
    return bytes;
  });
  while (encoded.wait_for(std::chrono::milliseconds(5)) != std::future_status::ready) QCoreApplication::processEvents();
  return encoded.get();
}

void SavePictureBytes(const QByteArray& bytes, const std::filesystem::path& path) {
  if (bytes.isEmpty()) throw NoMemory();
  SaveFile file(path);
  file.Write(bytes.constData(), static_cast<size_t>(bytes.size()));
  file.Commit();
}

void SaveDrawnPicture(const DrawnPicture& picture, const std::filesystem::path& path,
                      const std::function<void()>& rendered) {
  const std::string name = NameText(path);
  const QString ending = QFileInfo(QString::fromStdString(name)).suffix().toLower();
  QByteArray bytes;
  QImage pixels;
  if (ending == "png")
    pixels = PixelsOf(picture);
  else if (ending == "svg")
    bytes = SvgOf(picture);
  else if (ending == "pdf")
    bytes = PdfOf(picture);
  else
    throw CommandError(ErrorKind::Refused,
                       name + " is not a picture format that can be written: use a name ending in .png, .svg or .pdf.");
  if (rendered) rendered();
  SavePictureBytes(pixels.isNull() ? bytes : PngOf(pixels), path);
}

}  // namespace pallomir
