#pragma once

#include <QString>
#include <QStringList>
#include <string_view>

namespace pallomir {

// Numbers as windows show them. What is not a number is never shown as one.

/// A measured value for reading, of three digits: "0.0123", "12.3", "1 230".
QString Figure(double value);

/// "Peak 12.3 spikes/s"; empty where the value is not a number.
QString NamedFigure(const QString& name, double value, std::string_view unit);

/// A count, all its digits: "12 345".
QString Whole(double count);

/// What there is of `parts`, in one line.
QString InLine(const QStringList& parts);

}  // namespace pallomir
