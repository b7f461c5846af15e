#include "gui/forms/files_panel.h"

namespace pallomir {

FilesPanel::FilesPanel(QWidget* parent) : QWidget(parent) {
  const QString boundariesName =
      "Standard format for file name is cbfile.mX where X is the current maze (session) number.";
  cmdReadCBFile = MakeButton("cmdReadCBFile", "Read CBFile",
                             "Read cluster boundaries file.  Right click to read in a subset of the clusters from "
                             "designated cbfile.  " +
                                 boundariesName);
  txtCBFileRead = MakeTextBox("txtCBFileRead", "Boundaries file to read",
                              "Name of the boundaries file to read, without .txt. Enter reads it.", 9, "cbfile.m1");
  cmdWriteCBFile = MakeButton("cmdWriteCBFile", "Write CBFile", "Write cluster boundaries file.  " + boundariesName);
  txtCBFileWrite = MakeTextBox("txtCBFileWrite", "Boundaries file to write",
                               "Name of the boundaries file to write, without .txt. Enter writes it.", 9, "cbfile.m1");
  cmdWriteClustFile = MakeButton("cmdWriteClustFile", "Write ClustFile",
                                 "Write points to cluster files.  Standard format for file name is cl-mazeX where X is "
                                 "the current maze (session) number");
  txtClustFile =
      MakeTextBox("txtClustFile", "Cluster files to write",
                  "Name of the cluster files; each one's number is added. Enter writes them.", 9, "cl-maze1");
  cmdSaveDefaults = MakeButton("cmdSaveDefaults", "Save Defaults", "Keep the file names and epochs for the next start");
  cmdExit = MakeButton("cmdExit", "Exit", "Leave Pallomir");

  auto* grid = new QGridLayout(this);
  grid->setSpacing(4);
  grid->setContentsMargins(6, 5, 6, 5);
  grid->addWidget(cmdReadCBFile, 0, 0);
  grid->addWidget(txtCBFileRead, 0, 1);
  grid->addWidget(cmdWriteCBFile, 1, 0);
  grid->addWidget(txtCBFileWrite, 1, 1);
  grid->addWidget(cmdWriteClustFile, 0, 2);
  grid->addWidget(txtClustFile, 0, 3);
  grid->addLayout(Row({cmdSaveDefaults, nullptr, cmdExit}), 1, 2, 1, 2);
  grid->setRowStretch(2, 1);
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(3, 1);
}

}  // namespace pallomir
