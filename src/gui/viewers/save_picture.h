#pragma once

#include <qcustomplot.h>

#include <filesystem>
#include <functional>

#include "gui/controls/save_image.h"

namespace pallomir {

/// Pixels in an image file per pixel of the plot.
inline constexpr int kPictureScale = 3;

/// The plot in its current style, which must outlive the picture.
DrawnPicture PictureOf(QCustomPlot& plot, const QString& title);

/// Writes the plot, in its current style, to an image file, all or nothing. The extension of `path` gives the
/// format: .png, .svg or .pdf. Calls `rendered` once the plot is no longer needed; events are processed from then on
/// (see PngOf). Throws CommandError for any other extension, and if the file cannot be written.
void SavePicture(QCustomPlot& plot, const QString& title, const std::filesystem::path& path,
                 const std::function<void()>& rendered);

}  // namespace pallomir
