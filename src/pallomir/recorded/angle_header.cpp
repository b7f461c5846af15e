#include "pallomir/recorded/angle_header.h"

#include <array>
#include <cmath>

#include "pallomir/files/file_fault.h"
#include "pallomir/files/number_text.h"

namespace pallomir {

namespace {

constexpr double kLargestZero = 1e6;  // degrees; anything beyond is an error
constexpr std::array<std::string_view, 4> kAxes = {"+x", "+y", "-x", "-y"};

/// True if the value of `key` in `header` is `yes`, false if it is `no`.
bool Says(std::string_view header, std::string_view key, std::string_view yes, std::string_view no,
          const std::filesystem::path& file) {
  const std::string value = HeaderValue(header, key).value_or("");
  if (value != yes && value != no)
    throw FaultAt(
        ErrorKind::Broken, file, {},
        std::string(key) + " in the header must be \"" + std::string(yes) + "\" or \"" + std::string(no) + "\"");
  return value == yes;
}

}  // namespace

std::string AngleZeroText(double zero) {
  for (size_t axis = 0; axis < kAxes.size(); ++axis)
    if (zero == 90.0 * static_cast<double>(axis)) return std::string(kAxes[axis]);
  return DoubleText(zero);
}

std::optional<double> AngleZeroFromText(std::string_view text) {
  for (size_t axis = 0; axis < kAxes.size(); ++axis)
    if (text == kAxes[axis]) return 90.0 * static_cast<double>(axis);
  const auto degrees = NumberFromText(text);
  if (!degrees || !(std::abs(*degrees) <= kLargestZero)) return {};
  return WholeTurnsOff(*degrees);
}

std::string ConventionText(const AngleConvention& convention) {
  const std::string zero = AngleZeroText(convention.Zero);
  const bool isAxis = zero.ends_with('x') || zero.ends_with('y');
  return "zero " + zero + (isAxis ? "" : " degrees") + (convention.Clockwise ? ", clockwise" : ", counter-clockwise") +
         (convention.YUp ? ", y up" : "");
}

std::vector<HeaderEntry> HeaderEntries(const AngleConvention& convention) {
  return {{"AngleZero", AngleZeroText(convention.Zero)},
          {"AngleSense", convention.Clockwise ? "cw" : "ccw"},
          {"AngleY", convention.YUp ? "up" : "down"}};
}

AngleConvention ConventionFrom(std::string_view header, const std::filesystem::path& file) {
  const auto zeroText = HeaderValue(header, "AngleZero");
  if (!zeroText) return kTextAngles;
  const auto zero = AngleZeroFromText(*zeroText);
  if (!zero)
    throw FaultAt(ErrorKind::Broken, file, {}, "AngleZero in the header must be +x, +y, -x, -y or a number of degrees");
  return {*zero, Says(header, "AngleSense", "cw", "ccw", file), Says(header, "AngleY", "up", "down", file)};
}

}  // namespace pallomir
