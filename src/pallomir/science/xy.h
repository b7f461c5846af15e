#pragma once

namespace pallomir {

/// A point, or a vector, of a plane. Positions are double. The corners of a polygon, and the centre of the maze that is
/// clicked in the same way, are float: the parameters are, and so are the files, so that a point is the same after it
/// was written and read.
template <class Scalar>
struct XY {
  Scalar X = 0;
  Scalar Y = 0;
  bool operator==(const XY&) const = default;
};

/// A position in the video image, in pixels: x to the right and y downward.
using Position = XY<double>;

}  // namespace pallomir
