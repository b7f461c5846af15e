#include "gui/forms/picture_commands.h"

#include <QtWidgets>

#include "gui/controls/chosen_path.h"
#include "gui/controls/titles.h"
#include "gui/controls/toolkit_values.h"
#include "gui/forms/projection_picture.h"

namespace pallomir {

PictureCommands::PictureCommands(Workbench& bench, Projections& projections, QObject* parent)
    : QObject(parent), bench_(bench), projections_(projections) {}

void PictureCommands::AddTo(QMenu* view) {
  view->addSeparator();
  bench_.AddEntry(view, "mnuCopyPicture", "Copy picture",
                  "Copy the projection, with its axes and a legend, to the clipboard (Ctrl+C in the projection)",
                  [this] { mnuCopyPicture_Click(); });
  bench_.AddEntry(
      view, "mnuSavePicture", "Save picture...", "Save the projection as PNG, SVG or PDF",
      [this] { mnuSavePicture_Click(); }, Qt::CTRL | Qt::SHIFT | Qt::Key_S);
  // In the controls, Ctrl+C copies texts.
  bench_.On(new QShortcut(QKeySequence::Copy, &projections_), &QShortcut::activated,
            [this] { mnuCopyPicture_Click(); });
}

void PictureCommands::mnuCopyPicture_Click() {
  QApplication::clipboard()->setImage(projections_.Picture().Image());
  bench_.Say("The picture is on the clipboard.");
}

void PictureCommands::mnuSavePicture_Click() {
  const ProjectionPicture picture = projections_.Picture();
  const Session& session = bench_.TheSession();
  const QString x = FromText(session.ParameterNames[session.XParameter]);
  const QString y = FromText(session.ParameterNames[session.YParameter]);
  const QString path = bench_.TheDialogs().SaveFile(
      &projections_, {"Save picture", kPictureFilter,
                      FileNameWithTetrode(TetrodeOf(session), {"Projection " + x + " " + y}) + ".png", "png"});
  if (path.isEmpty()) return;
  SaveDrawnPicture(picture.Drawn(), PathOf(path));
  bench_.Say("Saved " + path);
}

}  // namespace pallomir
