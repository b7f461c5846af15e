#pragma once

#include <string>
#include <vector>

#include "pallomir/session/session.h"

namespace pallomir {

/// The mapping of two parameters to a surface of Width x Height device pixels: Left is the value at the centre of the
/// leftmost pixels, Right at the centre of the rightmost, likewise Top and Bottom. Bottom is larger than Top if values
/// grow downward.
struct View {
  double Left = 0;
  double Right = 1;
  double Top = 1;
  double Bottom = 0;
  int Width = 1;
  int Height = 1;

  /// Converts a value to device pixels, not rounded, and a device pixel to a value.
  double PixelX(double value) const { return (value - Left) / (Right - Left) * (Width - 1); }
  double PixelY(double value) const { return (value - Top) / (Bottom - Top) * (Height - 1); }
  double ValueX(double pixel) const { return Width > 1 ? Left + pixel / (Width - 1) * (Right - Left) : Left; }
  double ValueY(double pixel) const { return Height > 1 ? Top + pixel / (Height - 1) * (Bottom - Top) : Top; }

  /// False if an axis has no extent or one that is not finite: nothing can be drawn.
  bool Drawable() const;

  bool operator==(const View&) const = default;
};

/// The session's current projection. PosY on the vertical axis grows downward, as video coordinates do.
View ViewOf(const Session& session, int width, int height);
/// The same for any two parameters.
View ViewOf(const Session& session, ParameterPair pair, int width, int height);

/// Round values for the ticks of an axis from `from` to `to` (in either order), about `count` of them, and their
/// labels.
struct Tick {
  double Value;
  std::string Text;
};
std::vector<Tick> AxisTicks(double from, double to, int count);

/// Sets the session's two axis ranges to a rectangle in parameter units, given by any two opposite corners. Returns
/// false, without a change, if the rectangle has no extent.
bool ZoomTo(Session& session, Vertex corner, Vertex opposite);

}  // namespace pallomir
