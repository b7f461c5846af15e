#pragma once

#include <QLineEdit>

namespace pallomir {

/// A box that shows a path. Where there is no room for all of it, its start is left out: its end tells folders apart.
class PathBox : public QLineEdit {
 public:
  PathBox() { setReadOnly(true); }

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace pallomir
