#include "pallomir/science/angle_convention.h"

#include <cmath>

namespace pallomir {

double WholeTurnsOff(double degrees) {
  const double turned = std::fmod(degrees, 360);
  const double positive = turned < 0 ? turned + 360 : turned;
  return positive < 360 ? positive : 0;  // a hair below 0 would become 360
}

double HeadingOf(double angle, const AngleConvention& convention) {
  const double fromX = convention.Zero + (convention.Clockwise ? -angle : angle);  // towards +y
  return WholeTurnsOff(convention.YUp ? fromX : -fromX);                           // the +y of places is drawn downward
}

}  // namespace pallomir
