#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QIcon>
#include <algorithm>

#include "gui/controls/dialogs.h"
#include "gui/controls/theme.h"
#include "gui/forms/main_form.h"
#include "pallomir/session/session.h"

namespace {

/// The command line options. Help and version work without a display.
void Describe(QCommandLineParser& line) {
  line.setApplicationDescription("Cuts clusters of spikes out of tetrode recordings.");
  line.addHelpOption();
  line.addVersionOption();
  line.addPositionalArgument("file", "The parameter file (.Ntt.parms) to open; without it, a dialog asks for one.",
                             "[file]");
}

bool AsksAboutTheProgram(int argumentCount, char** arguments) {
  const QByteArrayList questions = {"-h", "--help", "-v", "--version"};
  return std::any_of(arguments + 1, arguments + argumentCount, [&](const char* a) { return questions.contains(a); });
}

}  // namespace

int main(int argumentCount, char** arguments) {
  QCommandLineParser line;
  Describe(line);
  QCoreApplication::setApplicationName("pallomir");
  QCoreApplication::setApplicationVersion(PALLOMIR_VERSION);
  if (AsksAboutTheProgram(argumentCount, arguments)) line.process(QCoreApplication(argumentCount, arguments));

  QApplication application(argumentCount, arguments);
  QApplication::setApplicationDisplayName("Pallomir");
  pallomir::ApplyTheme(application);
  QApplication::setDesktopFileName("pallomir");
  QApplication::setWindowIcon(QIcon(":/icons/pallomir.svg"));
  line.process(application);
  pallomir::Session session;
  // A parameter file on the command line, as a file manager passes it, replaces the answer to the file dialog.
  const QString file = line.positionalArguments().value(0);
  pallomir::DesktopDialogs dialogs(file.isEmpty() ? file : QFileInfo(file).absoluteFilePath());
  pallomir::Main_Form form(session, dialogs, pallomir::Preferences(pallomir::Preferences::UsualFile()));
  if (!form.Form_Load()) return 0;
  form.show();
  return QApplication::exec();
}
