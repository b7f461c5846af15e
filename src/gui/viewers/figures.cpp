#include "gui/viewers/figures.h"

#include <algorithm>
#include <cmath>

#include "gui/controls/toolkit_values.h"
#include "pallomir/files/number_text.h"

namespace pallomir {

namespace {

constexpr char kNothing[] = "-";

}  // namespace

QString Figure(double value) {
  if (!std::isfinite(value)) return kNothing;
  if (std::abs(value) >= 999.5 && std::abs(value) < 1e15) {
    const double hundreds = std::pow(10, std::floor(std::log10(std::abs(value))) - 2);
    return QString::fromStdString(Grouped(std::llround(std::round(value / hundreds) * hundreds)));
  }
  return QString::number(value, 'g', 3);
}

QString NamedFigure(const QString& name, double value, std::string_view unit) {
  if (!std::isfinite(value)) return {};
  return name + " " + Figure(value) + (unit.empty() ? "" : " ") + FromText(unit);
}

QString Whole(double count) {
  if (!(std::abs(count) < 1e18)) return kNothing;
  return QString::fromStdString(Grouped(std::llround(count)));
}

QString InLine(const QStringList& parts) {
  QStringList present;
  std::copy_if(parts.begin(), parts.end(), std::back_inserter(present), [](auto& part) { return !part.isEmpty(); });
  return present.join("    ");
}

}  // namespace pallomir
