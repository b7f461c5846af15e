#include "gui/forms/all_reports.h"

#include <QTemporaryDir>

#include "gui/controls/chosen_path.h"
#include "gui/controls/save_image.h"
#include "gui/controls/titles.h"
#include "gui/viewers/report_printing.h"
#include "gui/viewers/report_sheet.h"
#include "pallomir/analyses/cluster_reports.h"
#include "pallomir/analyses/commands.h"
#include "pallomir/files/error.h"

namespace pallomir {

namespace {

QByteArray BookOf(Workbench& bench) {
  const Session& session = bench.TheSession();
  const QTemporaryDir folder;
  if (!folder.isValid())
    throw CommandError(ErrorKind::NotWritten,
                       "No temporary folder could be made: " + folder.errorString().toStdString());
  SheetBook book(TitleWithTetrode("Analysis Report Sheet", TetrodeOf(session)));
  MakeReports(session, bench, bench.ClusterTexts(), bench.Names.PosFile, DefinedClusters(session),
              PathOf(folder.path()), [&](int c, const Report& report, World& part) {
                ReportSheet sheet;
                sheet.Fill(part, report, ReportTitle(c, SpikeFilePath(session.File.Path)));
                sheet.ShowTime();
                sheet.LayOutUnseen();
                book.Add(sheet, QString("Cluster %1").arg(c));
              });
  return book.Finish();
}

}  // namespace

void SaveAllReports(Workbench& bench, QWidget* parent) {
  const Session& session = bench.TheSession();
  RequireDefinedClusters(session);
  static_cast<void>(ReportFilesOf(session, bench.Names.PosFile, {}, {}));
  const QString name = FileNameWithTetrode(TetrodeOf(session), {"Reports"});
  const QString path =
      bench.TheDialogs().SaveFile(parent, {"Save Reports", "PDF document (*.pdf)|*.pdf", name + ".pdf", "pdf"});
  if (path.isEmpty()) return;
  bench.AskBeforeReplacing({PathOf(path)});
  bench.Work([&] { SavePictureBytes(BookOf(bench), PathOf(path)); });
  bench.Say(
      QString("Reports written, one page for each cluster with a boundary: %1.").arg(DefinedClusters(session).size()));
}

}  // namespace pallomir
