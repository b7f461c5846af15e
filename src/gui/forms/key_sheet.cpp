#include "gui/forms/key_sheet.h"

#include <QtWidgets>

#include "gui/controls/controls.h"
#include "gui/forms/key_table.h"

namespace pallomir {

namespace {

/// A cell of the table as HTML: names of controls in bold.
QString Cell(const char* text, int width, const QString& style) {
  static const QRegularExpression name(R"(\*\*([^*]+)\*\*)");
  const QString html = QString::fromUtf8(text).toHtmlEscaped().replace(name, "<b>\\1</b>");
  return QString("<td width='%1%' style='padding:2px 14px 2px 0;%2'>%3</td>").arg(width).arg(style, html);
}

QString Sheet(const QColor& quiet) {
  QString rows;
  for (const KeyRow& row : KeyTable()) {
    const QString rule = *row.In == '\0' ? "" : QString("border-top:1px solid %1;").arg(quiet.name());
    rows += "<tr>" + Cell(row.In, 24, rule) + Cell(row.Keys, 26, rule + "font-weight:600;") +
            Cell(row.Effect, 50, rule) + "</tr>";
  }
  return "<table cellspacing='0' width='100%' style='border-collapse:collapse;'>" + rows + "</table>";
}

}  // namespace

KeySheet::KeySheet(QWidget* parent) : QDialog(parent) {
  setObjectName("KeySheet");
  setWindowTitle("Keys and gestures");
  setAttribute(Qt::WA_DeleteOnClose);
  auto* sheet = Named(new QTextBrowser, "sheet", "Keys and gestures",
                      "Digits, + and - go into a text box while one has the focus");
  sheet->setFrameShape(QFrame::NoFrame);
  sheet->setTabChangesFocus(true);
  sheet->setHtml(Sheet(palette().color(QPalette::Mid)));
  auto* close = MakeButton("cmdClose", "&Close", "Close this window (Esc)");
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  auto* column = new QVBoxLayout(this);
  column->addWidget(sheet);
  column->addLayout(
      Row({MakeLabel("Digits, + and \u2212 go into a text box while one has the focus."), nullptr, close}));
  resize(QSize(1120, 720).boundedTo(screen()->availableGeometry().size()));
}

}  // namespace pallomir
