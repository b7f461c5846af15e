#include <QApplication>
#include <QCommandLineParser>
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
  QCommandLineParser line;
  line.setApplicationDescription("Cuts clusters of spikes out of tetrode recordings.");
  line.addHelpOption();
  line.addVersionOption();
  line.addPositionalArgument("file", "The parameter file (.Ntt.parms) to open; a dialog asks for one otherwise.",
                             "[file]");
  line.process(application);
  pallomir::Session session;
  // A parameter file on the command line, as a file manager names it, is what the dialog would have been answered with.
  const QString file = line.positionalArguments().value(0);
  pallomir::DesktopDialogs dialogs(file.isEmpty() ? file : QFileInfo(file).absoluteFilePath());
  pallomir::Main_Form form(session, dialogs);
  if (!form.Form_Load()) return 0;
  form.show();
  return QApplication::exec();
}
