#pragma once

#include <cstddef>
#include <string>

#include "pallomir/recorded/position_file.h"

namespace pallomir {

/// How well head angles, read by some convention, agree with the direction of travel.
struct AngleFit {
  AngleConvention Convention;
  double Agreement = 0;  ///< mean cosine of the difference: 1 if always equal, 0 if unrelated
};

struct AngleCheck {
  bool HasAngles = false;
  size_t Running = 0;    ///< samples with an angle while the animal ran
  double Speed = 0;      ///< minimum speed of running, in pixels per second
  AngleFit Assumed;      ///< the convention of the positions
  AngleFit Best;         ///< of all zeros and both senses; its zero is snapped to a near axis
  bool HasSense = true;  ///< the runs went in more directions than to and fro, so that they distinguish cw from ccw

  bool IsEnough() const;  ///< there are enough samples for a result
  bool Fits() const;      ///< no convention is clearly better than the assumed one, and that one is acceptable
};

/// `recorded` has the angles as recorded. The animal counts as running above 10 cm/s, or 40 pixels/s if the scale is
/// unknown.
AngleCheck CheckAngles(const Positions& recorded);

/// "zero +y, clockwise; ...": the assumed and the best convention, how well they fit, and the import options for the
/// best.
std::string AnglesSentence(const AngleCheck& check);

}  // namespace pallomir
