#pragma once

#include <QDialog>

namespace pallomir {

/// "Keys and gestures": the table of all of them on one sheet.
class KeySheet : public QDialog {
  Q_OBJECT

 public:
  explicit KeySheet(QWidget* parent);
};

}  // namespace pallomir
