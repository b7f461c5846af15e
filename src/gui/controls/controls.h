#pragma once

#include <QtWidgets>
#include <optional>

namespace pallomir {

/// Sets a control's object name, tooltip and accessible name.
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

/// A text box with room for at least `digits` digits.
QLineEdit* MakeTextBox(const QString& name, const QString& accessibleName, const QString& toolTip, int digits,
                       const QString& text = {});

/// The number in a text box; empty if its text is not a number.
std::optional<double> NumberIn(const QLineEdit* box);

/// The same in single precision; clamped to its range.
std::optional<float> SingleIn(const QLineEdit* box);

/// A label that shows any text as plain text, as file names and remarks may contain tags. `buddy` gets the focus by the
/// label's mnemonic.
QLabel* MakeLabel(const QString& caption, QWidget* buddy = nullptr);
QLabel* MakeHeading(const QString& caption);

/// A menu that a right click opens; it belongs to `parent`.
QMenu* MakeMenu(QWidget* parent, const QString& name, const QString& title);
QAction* MakeEntry(QMenu* menu, const QString& name, const QString& caption);

/// Shows a window above the others, with the keyboard's focus.
void ShowOnTop(QWidget* window);

/// A tooltip that shows plain text.
QString PlainToolTip(const QString& text);

/// Lays widgets out side by side; a null pointer stands for a stretch.
QHBoxLayout* Row(std::initializer_list<QWidget*> widgets, int spacing = 6);

}  // namespace pallomir
