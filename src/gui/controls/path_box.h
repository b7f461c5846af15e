#pragma once

#include <QLineEdit>

namespace pallomir {

/// A box that shows a path. If it does not fit, its start is elided, since its end tells folders apart.
class PathBox : public QLineEdit {
 public:
  PathBox() { setReadOnly(true); }

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace pallomir
