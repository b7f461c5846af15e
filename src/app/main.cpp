#include <QApplication>
#include <QFileInfo>
#include <QIcon>

#include "controls/dialogs.h"
#include "controls/theme.h"
#include "forms/main_form.h"
#include "session/session.h"

int main(int argumentCount, char** arguments) {
  QApplication application(argumentCount, arguments);
  QApplication::setApplicationName("pallomir");
  QApplication::setApplicationDisplayName("Pallomir");
  QApplication::setApplicationVersion(PALLOMIR_VERSION);
  pallomir::ApplyTheme(application);
  QApplication::setDesktopFileName("pallomir");
  QApplication::setWindowIcon(QIcon(":/icons/pallomir.svg"));
  pallomir::Session session;
  // A parameter file on the command line, as a file manager names it, is what the dialog would have been answered with.
  const QString file = application.arguments().value(1);
  pallomir::DesktopDialogs dialogs(file.isEmpty() ? file : QFileInfo(file).absoluteFilePath());
  pallomir::Main_Form form(session, dialogs);
  if (!form.Form_Load()) return 0;
  form.show();
  return QApplication::exec();
}
