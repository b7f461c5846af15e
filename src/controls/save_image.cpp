#include "controls/save_image.h"

#include <QBuffer>

#include "files/save_file.h"

namespace pallomir {

void SaveImage(const QImage& image, std::string_view path) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  image.save(&buffer, "PNG");
  SaveFile file(path);
  file.Write({bytes.data(), static_cast<size_t>(bytes.size())});
  file.Commit();
}

}  // namespace pallomir
