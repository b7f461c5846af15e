#pragma once

#include <QLabel>
#include <QPainter>

namespace pallomir {

/// A sentence below a form: wraps to a second line if necessary and never widens the form.
class StatusLine : public QLabel {
 public:
  StatusLine() {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  }
  QSize sizeHint() const override { return {0, heightForWidth(width())}; }
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void resizeEvent(QResizeEvent* event) override {
    QLabel::resizeEvent(event);
    updateGeometry();
  }
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
