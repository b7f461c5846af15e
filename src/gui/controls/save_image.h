#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <filesystem>
#include <string_view>

namespace pallomir {

/// An uninitialised image. Throws CommandError if there is not enough memory.
QImage MakeImage(QSize size, QImage::Format format);

/// The bytes of an image as a PNG file. Events are processed meanwhile, as a large image takes a third of a second: the
/// window that called this may be destroyed afterwards. Throws CommandError if there is not enough memory.
QByteArray PngOf(const QImage& image);

/// Writes the bytes of an image, all or nothing. Throws CommandError if they are empty or cannot be written.
void SavePictureBytes(const QByteArray& bytes, const std::filesystem::path& path);

}  // namespace pallomir
