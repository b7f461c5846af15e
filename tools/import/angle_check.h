#pragma once

#include <cstddef>
#include <string>

#include "pallomir/recorded/position_file.h"

namespace pallomir {

/// How well angles of the head, read by some convention, agree with the way that the animal ran.
struct AngleFit {
  AngleConvention Convention;
  double Agreement = 0;  ///< mean cosine of the difference: 1 where they are always the same, 0 where unrelated
};

struct AngleCheck {
  bool HasAngles = false;
  size_t Running = 0;    ///< samples that have an angle while the animal ran
  double Speed = 0;      ///< above which it ran, in pixels a second
  AngleFit Assumed;      ///< the convention of the positions
  AngleFit Best;         ///< of all zeros and both senses; its zero is an axis where one is near
  bool HasSense = true;  ///< the runs went more ways than to and fro, so that they tell cw from ccw

  bool IsEnough() const;  ///< there are samples enough to say something
  bool Fits() const;      ///< no convention is clearly better than the assumed one, and that is no bad one
};

/// `recorded` holds angles as recorded. The animal runs above 10 cm/s, or 40 pixels/s where the scale is not known.
AngleCheck CheckAngles(const Positions& recorded);

/// "zero +y, clockwise; ...": what was assumed, what fits, how well, and with which options of the import to have it.
std::string AnglesSentence(const AngleCheck& check);

}  // namespace pallomir
