#pragma once

#include <QLabel>

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

}  // namespace pallomir
