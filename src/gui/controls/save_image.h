#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <string_view>

namespace pallomir {

/// An image that nothing was drawn on yet. Throws CommandError when there is no memory for it.
QImage MakeImage(QSize size, QImage::Format format);

/// A picture as a PNG file's bytes. The user is looked at meanwhile, a large picture taking a third of a second: the
/// window that asks for it may be gone afterwards. Throws CommandError when there is no memory for them.
QByteArray PngOf(const QImage& image);

/// Writes the bytes of a picture, all or nothing. Throws CommandError when they are none, or cannot be written.
void SavePictureBytes(const QByteArray& bytes, std::string_view path);

}  // namespace pallomir
