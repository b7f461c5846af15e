#include "gui/controls/save_image.h"

#include <QBuffer>
#include <QCoreApplication>
#include <chrono>
#include <future>

#include "pallomir/files/error.h"
#include "pallomir/files/save_file.h"

namespace pallomir {

namespace {

CommandError NoMemory() {
  return {ErrorKind::NoMemory, "There is not enough memory for the picture."};
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

}  // namespace pallomir
