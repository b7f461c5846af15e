#pragma once

#include <QLabel>
#include <QPainter>

namespace pallomir {

/// A sentence below a form. It has room for two lines at all times, so that no control moves when it comes or goes.
class StatusLine : public QLabel {
 public:
  StatusLine() {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  }
  // Layouts ask for the height at widths that the label never has, where the text would take many lines.
  int heightForWidth(int) const override { return 2 * fontMetrics().lineSpacing(); }
  QSize sizeHint() const override { return {0, heightForWidth(0)}; }
  QSize minimumSizeHint() const override { return sizeHint(); }
};

/// A sentence on one line, elided if it does not fit.
class ElidedLine : public QLabel {
 public:
  ElidedLine() {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.drawText(rect(), static_cast<int>(alignment()), fontMetrics().elidedText(text(), Qt::ElideRight, width()));
  }
};

}  // namespace pallomir
