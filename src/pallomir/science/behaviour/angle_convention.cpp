#include "pallomir/science/behaviour/angle_convention.h"

#include <cmath>

namespace pallomir {

double WholeTurnsOff(double degrees) {
  const double turned = std::fmod(degrees, 360);
  const double positive = turned < 0 ? turned + 360 : turned;
  return positive < 360 ? positive : 0;  // a negative angle too close to 0 rounds to 360
}

double HeadingOf(double angle, const AngleConvention& convention) {
  const double fromX = convention.Zero + (convention.Clockwise ? -angle : angle);  // from +x towards +y
  return WholeTurnsOff(convention.YUp ? fromX : -fromX);  // the y axis of positions points down in the image
}

}  // namespace pallomir
