#pragma once

#include <QLabel>
#include <QPainter>

namespace pallomir {

/// A sentence below a form: it takes a second line where it needs one, and never widens the form.
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

/// A sentence on one line, which ends with dots where there is no room for all of it.
class ElidedLine : public QLabel {
 public:
  ElidedLine() {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.drawText(rect(), alignment(), fontMetrics().elidedText(text(), Qt::ElideRight, width()));
  }
};

}  // namespace pallomir
