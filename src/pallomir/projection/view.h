#pragma once

#include <string>
#include <vector>

#include "pallomir/session/session.h"

namespace pallomir {

/// How two parameters lie on a surface of Width x Height device pixels: Left is the value at the centre of the
/// leftmost pixels, Right at the centre of the rightmost, Top and Bottom likewise, both ends included. Bottom is above
/// Top where values grow downward.
struct View {
  double Left = 0;
  double Right = 1;
  double Top = 1;
  double Bottom = 0;
  int Width = 1;
  int Height = 1;

  /// Device pixels, not rounded, of a value; and the value at a device pixel.
  double PixelX(double value) const { return (value - Left) / (Right - Left) * (Width - 1); }
  double PixelY(double value) const { return (value - Top) / (Bottom - Top) * (Height - 1); }
  double ValueX(double pixel) const { return Width > 1 ? Left + pixel / (Width - 1) * (Right - Left) : Left; }
  double ValueY(double pixel) const { return Height > 1 ? Top + pixel / (Height - 1) * (Bottom - Top) : Top; }

  /// False when an axis has no extent, or one that is not a number: nothing can be drawn.
  bool Drawable() const;

  bool operator==(const View&) const = default;
};

/// The session's present projection. PosY on the vertical axis grows downward, as video coordinates do.
View ViewOf(const Session& session, int width, int height);

/// Round values at which an axis from `from` to `to` (in either order) is marked, about `count` of them, and the
/// texts that stand at them.
struct Tick {
  double Value;
  std::string Text;
};
std::vector<Tick> AxisTicks(double from, double to, int count);

/// Sets the session's two axis ranges to a rectangle in parameter units, given by any two opposite corners. False,
/// and no change, when the rectangle has no extent.
bool ZoomTo(Session& session, Vertex corner, Vertex opposite);

}  // namespace pallomir
