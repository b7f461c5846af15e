#pragma once

#include "gui/controls/controls.h"

namespace pallomir {

/// Commands for the files of a cut, and for leaving the program.
class FilesPanel : public QWidget {
  Q_OBJECT

 public:
  explicit FilesPanel(QWidget* parent);

  QPushButton* cmdReadCBFile;
  QLineEdit* txtCBFileRead;
  QPushButton* cmdWriteCBFile;
  QLineEdit* txtCBFileWrite;
  QPushButton* cmdWriteClustFile;
  QLineEdit* txtClustFile;
  QPushButton* cmdSaveDefaults;
  QPushButton* cmdExit;
};

}  // namespace pallomir
