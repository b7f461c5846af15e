#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>
#include <filesystem>
#include <functional>

class QPaintDevice;

namespace pallomir {

/// An uninitialised image. Throws CommandError if there is not enough memory.
QImage MakeImage(QSize size, QImage::Format format);

/// The bytes of an image as a PNG file. Events are processed meanwhile, as a large image takes a third of a second: the
/// window that called this may be destroyed afterwards. Throws CommandError if there is not enough memory.
QByteArray PngOf(const QImage& image);

/// A picture that can be drawn as pixels, or as lines and texts.
struct DrawnPicture {
  QString Title;
  /// In pixels of 96 per inch.
  QSize Size;
  /// Image pixels for each of these.
  double PixelScale;
  /// The picture as PixelScale times as many pixels.
  std::function<QImage()> Pixels;
  std::function<void(QPaintDevice&)> Draw;
};

/// Writes a picture, all or nothing. The extension of `path` gives the format: .png, .svg or .pdf. Calls `rendered`
/// once the picture is no longer needed; events are processed from then on (see PngOf). Throws CommandError for any
/// other extension, and if the file cannot be written.
void SaveDrawnPicture(const DrawnPicture& picture, const std::filesystem::path& path,
                      const std::function<void()>& rendered = {});

/// The choice of formats in a file dialog.
inline constexpr char kPictureFilter[] = "PNG picture (*.png)|*.png|SVG drawing (*.svg)|*.svg|PDF page (*.pdf)|*.pdf";

/// Writes the bytes of an image, all or nothing. Throws CommandError if they are empty or cannot be written.
void SavePictureBytes(const QByteArray& bytes, const std::filesystem::path& path);

}  // namespace pallomir
