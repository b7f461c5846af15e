#pragma once

#include <QString>
#include <QStringList>
#include <string_view>

namespace pallomir {

// Numbers as shown in windows. NaN is never shown as a number.

/// A measured value with three significant digits: "0.0123", "12.3", "1 230".
QString Figure(double value);

/// "Peak 12.3 spikes/s"; empty for NaN.
QString NamedFigure(const QString& name, double value, std::string_view unit);

/// A count with all its digits: "12 345".
QString Whole(double count);

/// The parts that are not empty, in one line.
QString InLine(const QStringList& parts);

}  // namespace pallomir
