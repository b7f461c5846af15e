#include "gui/viewers/colour_scales.h"

#include <cmath>
#include <numbers>
#include <span>

namespace pallomir {

namespace {

constexpr int kSteps = 32;

/// Lightness 0 to 1, chroma, and hue in degrees, in the OKLab space (Ottosson 2020), in which equal steps look equal.
struct Tone {
  double Lightness, Chroma, Hue;
};

struct Linear {
  double Red, Green, Blue;
  bool Shown() const {
    const auto within = [](double value) { return value >= -1e-6 && value <= 1 + 1e-6; };
    return within(Red) && within(Green) && within(Blue);
  }
};

Linear LinearOf(const Tone& tone) {
  const double a = tone.Chroma * std::cos(tone.Hue * std::numbers::pi / 180);
  const double b = tone.Chroma * std::sin(tone.Hue * std::numbers::pi / 180);
  const double l = std::pow(tone.Lightness + 0.3963377774 * a + 0.2158037573 * b, 3);
  const double m = std::pow(tone.Lightness - 0.1055613458 * a - 0.0638541728 * b, 3);
  const double s = std::pow(tone.Lightness - 0.0894841775 * a - 1.2914855480 * b, 3);
  return {4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s,
          -1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s,
          -0.0041960863 * l - 0.7034186147 * m + 1.7076147010 * s};
}

/// The tone as a screen colour, with chroma reduced to what the screen can show.
QColor ColourOf(Tone tone) {
  while (!LinearOf(tone).Shown() && tone.Chroma > 0) tone.Chroma -= 0.002;
  const auto encoded = [](double value) {
    value = std::clamp(value, 0.0, 1.0);
    return static_cast<float>(value <= 0.0031308 ? 12.92 * value : 1.055 * std::pow(value, 1 / 2.4) - 0.055);
  };
  const Linear linear = LinearOf(tone);
  return QColor::fromRgbF(encoded(linear.Red), encoded(linear.Green), encoded(linear.Blue));
}

/// A gradient through equally spaced tones.
QCPColorGradient Through(std::span<const Tone> tones) {
  QCPColorGradient gradient;
  gradient.clearColorStops();
  for (int k = 0; k <= kSteps; ++k) {
    const double position = static_cast<double>(k) / kSteps * static_cast<double>(tones.size() - 1);
    const size_t i = std::min(static_cast<size_t>(position), tones.size() - 2);
    const double share = position - static_cast<double>(i);
    const auto between = [&](double Tone::*member) { return std::lerp(tones[i].*member, tones[i + 1].*member, share); };
    gradient.setColorStopAt(static_cast<double>(k) / kSteps,
                            ColourOf({between(&Tone::Lightness), between(&Tone::Chroma), between(&Tone::Hue)}));
  }
  return gradient;
}

// Lightness changes by the same amount from each tone to the next.
constexpr Tone kEven[] = {
    {0.28, 0.13, 308}, {0.445, 0.13, 268}, {0.61, 0.11, 205}, {0.775, 0.18, 148}, {0.94, 0.19, 108}};
constexpr Tone kHeat[] = {{0.20, 0.06, 20}, {0.45, 0.18, 27}, {0.70, 0.19, 52}, {0.95, 0.13, 104}};
constexpr Tone kGray[] = {{0.94, 0, 0}, {0.14, 0, 0}};

QCPColorGradient Jet() {
  QCPColorGradient gradient;
  gradient.clearColorStops();
  gradient.setColorStopAt(0, QColor(0, 0, 128));
  gradient.setColorStopAt(0.125, QColor(0, 0, 255));
  gradient.setColorStopAt(0.375, QColor(0, 255, 255));
  gradient.setColorStopAt(0.625, QColor(255, 255, 0));
  gradient.setColorStopAt(0.875, QColor(255, 0, 0));
  gradient.setColorStopAt(1, QColor(128, 0, 0));
  return gradient;
}

QCPColorGradient Colours(ColourScale scale) {
  switch (scale) {
    case ColourScale::Jet:
      return Jet();
    case ColourScale::Heat:
      return Through(kHeat);
    case ColourScale::Gray:
      return Through(kGray);
    case ColourScale::Even:
      break;
  }
  return Through(kEven);
}

}  // namespace

QString NameOf(ColourScale scale) {
  constexpr const char* names[] = {"Even", "Jet", "Heat", "Gray"};
  return names[static_cast<int>(scale)];
}

QCPColorGradient GradientOf(ColourScale scale) {
  QCPColorGradient gradient = Colours(scale);
  gradient.setNanHandling(QCPColorGradient::nhNanColor);
  gradient.setNanColor(Qt::white);
  return gradient;
}

}  // namespace pallomir
