#include "gui/controls/theme.h"

#include <QtWidgets>

namespace pallomir {

namespace {

struct Shades {
  const char* Window;
  const char* Base;
  const char* Text;
  const char* Quiet;
  const char* Line;
  const char* Button;
  const char* Hover;
  const char* Pressed;
  const char* Accent;
  const char* AccentText;
  /// Suffix of the icon names for this theme.
  const char* Icons;
};

constexpr Shades kLight = {"#f3f4f7", "#ffffff", "#1b2230", "#5b6678", "#c5ccd8", "#ffffff",
                           "#e8eef9", "#d5e0f5", "#2257c4", "#ffffff", "light"};
constexpr Shades kDark = {"#20242c", "#171a21", "#e8ebf1", "#a3adbd", "#454d5b", "#2b303a",
                          "#363d4a", "#414a5b", "#82aaff", "#10141c", "dark"};

QPalette PaletteOf(const Shades& shades) {
  QPalette palette;
  palette.setColor(QPalette::Window, shades.Window);
  palette.setColor(QPalette::WindowText, shades.Text);
  palette.setColor(QPalette::Base, shades.Base);
  palette.setColor(QPalette::AlternateBase, shades.Window);
  palette.setColor(QPalette::Text, shades.Text);
  palette.setColor(QPalette::Button, shades.Button);
  palette.setColor(QPalette::ButtonText, shades.Text);
  palette.setColor(QPalette::ToolTipBase, shades.Base);
  palette.setColor(QPalette::ToolTipText, shades.Text);
  palette.setColor(QPalette::PlaceholderText, shades.Quiet);
  palette.setColor(QPalette::Highlight, shades.Accent);
  palette.setColor(QPalette::HighlightedText, shades.AccentText);
  palette.setColor(QPalette::Link, shades.Accent);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, QColor(shades.Quiet));
  return palette;
}

// %1 line, %2 hover, %3 pressed, %4 accent, %5 text on accent, %6 quiet text, %7 button, %8 base, %9 icons
constexpr const char* kSheet = R"(
QPushButton { border: 1px solid %1; border-radius: 4px; padding: 3px 8px; background: %7; min-height: 17px; }
QPushButton:hover { background: %2; }
QPushButton:pressed, QPushButton:checked { background: %3; border-color: %4; }
QPushButton:focus { border: 2px solid %4; padding: 2px 7px; }
QPushButton:disabled { background: transparent; color: %6; }
QPushButton[primary="true"] { background: %4; color: %5; border-color: %4; font-weight: 600; }
QPushButton[primary="true"]:focus { border: 2px solid palette(text); }
QPushButton[primary="true"]:disabled { background: transparent; color: %6; border-color: %1; }
QLineEdit, QComboBox { border: 1px solid %1; border-radius: 4px; padding: 2px 5px; background: %8; min-height: 18px; }
QLineEdit:focus, QComboBox:focus { border: 2px solid %4; padding: 1px 4px; }
QLineEdit:disabled, QLineEdit:read-only, QComboBox:disabled { background: transparent; color: %6; }
QComboBox { combobox-popup: 0; }
QComboBox::drop-down { border: 0; width: 18px; }
QComboBox::down-arrow { image: url(:/icons/arrow-%9.svg); width: 11px; height: 11px; }
QCheckBox::indicator, QRadioButton::indicator { width: 12px; height: 12px; border: 1px solid %6; background: %8; }
QCheckBox::indicator { border-radius: 3px; }
QRadioButton::indicator { border-radius: 7px; }
QCheckBox::indicator:hover, QRadioButton::indicator:hover { border-color: %4; }
QCheckBox::indicator:focus, QRadioButton::indicator:focus { border: 2px solid %4; width: 10px; height: 10px; }
QCheckBox::indicator:checked { background: %4; border-color: %4; image: url(:/icons/tick-%9.svg); }
QRadioButton::indicator:checked { border-color: %4;
  background: qradialgradient(cx: 0.5, cy: 0.5, radius: 0.5, fx: 0.5, fy: 0.5, stop: 0.5 %4, stop: 0.6 %8); }
QCheckBox::indicator:disabled, QRadioButton::indicator:disabled { border-color: %1; background: transparent; }
QListWidget, QPlainTextEdit { border: 1px solid %1; border-radius: 4px; background: %8; }
QListWidget:focus, QPlainTextEdit:focus { border: 1px solid %4; }
QLabel[heading="true"] { font-weight: 600; }
QLabel[quiet="true"] { color: %6; }
QTabWidget::pane { border: 1px solid %1; border-radius: 4px; top: -1px; }
QTabBar::tab { padding: 4px 14px; border: 1px solid transparent; border-bottom: 2px solid transparent; }
QTabBar::tab:selected { border-bottom: 2px solid %4; color: %4; }
QTabBar::tab:focus { color: %4; }
QProgressBar { border: 0; background: %1; border-radius: 2px; max-height: 4px; min-height: 4px; }
QProgressBar::chunk { background: %4; border-radius: 2px; }
QStatusBar { color: %6; }
QToolTip { border: 1px solid %1; padding: 3px; }
)";

}  // namespace

void ApplyTheme(QApplication& application) {
  const bool dark = QApplication::palette().color(QPalette::Window).lightness() < 128;
  const Shades& shades = dark ? kDark : kLight;
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  QApplication::setPalette(PaletteOf(shades));
  QFont font = QApplication::font();
  font.setPointSizeF(9);
  QApplication::setFont(font);
  application.setStyleSheet(QString(kSheet).arg(shades.Line, shades.Hover, shades.Pressed, shades.Accent,
                                                shades.AccentText, shades.Quiet, shades.Button, shades.Base,
                                                shades.Icons));
}

}  // namespace pallomir
