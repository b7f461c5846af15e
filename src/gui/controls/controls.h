#pragma once

#include <QtWidgets>
#include <optional>

namespace pallomir {

/// Names a control: its object name, tooltip and, for assistive tools, what it is called.
template <class Control>
Control* Named(Control* control, const QString& name, const QString& accessibleName, const QString& toolTip) {
  control->setObjectName(name);
  control->setAccessibleName(QString(accessibleName).remove('&').trimmed());
  control->setToolTip(toolTip);
  return control;
}

/// The object name of item `index` of a control array: lblChooseCluster(7).
inline QString Indexed(const QString& name, int index) {
  return QString("%1(%2)").arg(name).arg(index);
}

QPushButton* MakeButton(const QString& name, const QString& caption, const QString& toolTip);
QCheckBox* MakeCheckBox(const QString& name, const QString& caption, const QString& toolTip);
QRadioButton* MakeOption(const QString& name, const QString& caption, const QString& toolTip);

/// A text box that takes `digits` digits in its narrowest form.
QLineEdit* MakeTextBox(const QString& name, const QString& accessibleName, const QString& toolTip, int digits,
                       const QString& text = {});

/// The number in a text box; nothing when its text is not one.
std::optional<double> NumberIn(const QLineEdit* box);

/// The same in single precision; what is beyond its range is the last number within.
std::optional<float> SingleIn(const QLineEdit* box);

/// A label that takes every text as it stands, whatever tags it holds: file names and remarks come from elsewhere. With
/// `buddy`, which its mnemonic focuses.
QLabel* MakeLabel(const QString& caption, QWidget* buddy = nullptr);
QLabel* MakeHeading(const QString& caption);

/// A tooltip that shows a text as it stands.
QString PlainToolTip(const QString& text);

/// Lays widgets out side by side; a null pointer stands for stretch.
QHBoxLayout* Row(std::initializer_list<QWidget*> widgets, int spacing = 6);

}  // namespace pallomir
