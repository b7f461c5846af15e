#pragma once

#include <QByteArray>
#include <QImage>
#include <string_view>

namespace pallomir {

/// A picture as a PNG file's bytes. Throws CommandError when there is no memory for them.
QByteArray PngOf(const QImage& image);

/// Writes the bytes of a picture, all or nothing. Throws CommandError when they are none, or cannot be written.
void SavePictureBytes(const QByteArray& bytes, std::string_view path);

}  // namespace pallomir
