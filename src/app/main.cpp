#include <QApplication>

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
  pallomir::Session session;
  pallomir::DesktopDialogs dialogs;
  pallomir::Main_Form form(session, dialogs);
  if (!form.Form_Load()) return 0;
  form.show();
  return QApplication::exec();
}
