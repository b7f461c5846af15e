#pragma once

#include <qcustomplot.h>

#include <functional>
#include <string_view>

namespace pallomir {

/// Pixels of a picture file for each of the plot's.
inline constexpr int kPictureScale = 3;

/// Writes the plot, as it is dressed, to a picture file, whole or not at all. The ending of `path` (in the system's own
/// notation) tells the kind: .png, .svg or .pdf. `rendered` is called once the plot is needed no more; the user is
/// looked at from then on (see PngOf). Throws CommandError for any other, and when it cannot be written.
void SavePicture(QCustomPlot& plot, const QString& title, std::string_view path, const std::function<void()>& rendered);

}  // namespace pallomir
