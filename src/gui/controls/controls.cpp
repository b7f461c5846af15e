#include "gui/controls/controls.h"

#include <algorithm>
#include <limits>

#include "pallomir/files/number_text.h"

namespace pallomir {

QPushButton* MakeButton(const QString& name, const QString& caption, const QString& toolTip) {
  auto* button = Named(new QPushButton(caption), name, caption, toolTip);
  button->setAutoDefault(false);
  return button;
}

QCheckBox* MakeCheckBox(const QString& name, const QString& caption, const QString& toolTip) {
  return Named(new QCheckBox(caption), name, caption, toolTip);
}

QRadioButton* MakeOption(const QString& name, const QString& caption, const QString& toolTip) {
  return Named(new QRadioButton(caption), name, caption, toolTip);
}

QLineEdit* MakeTextBox(const QString& name, const QString& accessibleName, const QString& toolTip, int digits,
                       const QString& text) {
  auto* box = Named(new QLineEdit(text), name, accessibleName, toolTip);
  box->setMinimumWidth(box->fontMetrics().horizontalAdvance('0') * digits + 14);
  box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  return box;
}

std::optional<double> NumberIn(const QLineEdit* box) {
  return NumberFromText(box->text().toStdString());
}

std::optional<float> SingleIn(const QLineEdit* box) {
  constexpr double kLargest = std::numeric_limits<float>::max();
  const auto number = NumberIn(box);
  if (!number) return {};
  return static_cast<float>(std::clamp(*number, -kLargest, kLargest));
}

QLabel* MakeLabel(const QString& caption, QWidget* buddy) {
  auto* label = new QLabel;
  label->setTextFormat(Qt::PlainText);
  label->setText(caption);
  label->setBuddy(buddy);
  return label;
}

QLabel* MakeHeading(const QString& caption) {
  QLabel* label = MakeLabel(caption);
  label->setProperty("heading", true);
  return label;
}

QMenu* MakeMenu(QWidget* parent, const QString& name, const QString& title) {
  auto* menu = new QMenu(title, parent);
  menu->setObjectName(name);
  return menu;
}

QAction* MakeEntry(QMenu* menu, const QString& name, const QString& caption) {
  QAction* entry = menu->addAction(caption);
  entry->setObjectName(name);
  return entry;
}

void ShowOnTop(QWidget* window) {
  window->show();
  window->raise();
  window->activateWindow();
}

QString PlainToolTip(const QString& text) {
  return Qt::mightBeRichText(text) ? "<span>" + text.toHtmlEscaped() + "</span>" : text;
}

QHBoxLayout* Row(std::initializer_list<QWidget*> widgets, int spacing) {
  auto* row = new QHBoxLayout;
  row->setSpacing(spacing);
  for (QWidget* widget : widgets) {
    if (widget)
      row->addWidget(widget);
    else
      row->addStretch();
  }
  return row;
}

}  // namespace pallomir
