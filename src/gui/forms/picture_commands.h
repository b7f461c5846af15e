#pragma once

#include "gui/forms/projections.h"
#include "gui/forms/workbench.h"

class QMenu;

namespace pallomir {

/// Copies and saves the projection as a picture.
class PictureCommands : public QObject {
 public:
  PictureCommands(Workbench& bench, Projections& projections, QObject* parent);
  void AddTo(QMenu* view);

 private:
  void mnuCopyPicture_Click();
  void mnuSavePicture_Click();

  Workbench& bench_;
  Projections& projections_;
};

}  // namespace pallomir
