#pragma once

#include <QImage>
#include <string_view>

namespace pallomir {

/// Writes a PNG picture, all or nothing. Throws CommandError when it cannot be written.
void SaveImage(const QImage& image, std::string_view path);

}  // namespace pallomir
