// Looking at the chosen cluster: notes, the centre of the maze.

#include <QtWidgets>

#include "analyses/center_file.h"
#include "forms/analyses_panel.h"
#include "forms/cl_note_form.h"
#include "forms/main_form.h"

namespace pallomir {

void Main_Form::ConnectAnalyses() {
  OnClick(analyses_->cmdClNote, &Main_Form::cmdClNote_Click);
  OnClick(analyses_->cmdWriteCenterFile, &Main_Form::cmdWriteCenterFile_Click);
  connect(projections_.get(), &Projections::CenterChosen, this,
          [this](Vertex at) { Run([this, at] { Projections_CenterChosen(at); }); });
}

void Main_Form::cmdClNote_Click() {
  const bool load = !clNote_;
  if (load) {
    clNote_ = new ClNoteForm(session_, *this, this);
    connect(clNote_, &ClNoteForm::Unloaded, this, [this] { clNote_ = nullptr; });
  }
  clNote_->show();
  clNote_->raise();
  clNote_->activateWindow();
  if (load) clNote_->Form_Load();
}

void Main_Form::cmdWriteCenterFile_Click() {
  ArmCenter(true);
  ShowMessage("Move cursor to center of maze and left-click mouse to write Center File", {});
}

void Main_Form::ArmCenter(bool armed) {
  analyses_->cmdWriteCenterFile->setProperty("Tag", armed ? "1" : "0");
  projections_->ShowMode();
}

void Main_Form::Projections_CenterChosen(Vertex at) {
  const QScopeGuard served = qScopeGuard([this] { ArmCenter(false); });
  WriteCenterFile(session_, *this, analyses_->txtCenterFile->text().toStdString(), {at.X, at.Y});
}

}  // namespace pallomir
