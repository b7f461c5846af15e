#include "gui/viewers/report_form.h"

#include <qcustomplot.h>

#include <QPrinter>
#include <QtWidgets>

#include "gui/controls/chosen_path.h"
#include "gui/controls/controls.h"
#include "gui/controls/run_command.h"
#include "gui/controls/save_image.h"
#include "gui/controls/titles.h"
#include "gui/viewers/report_printing.h"
#include "gui/viewers/report_sheet.h"
#include "gui/viewers/window_places.h"

namespace pallomir {

namespace {

constexpr int kPictureScale = 3;
constexpr int kSecond = 1000;

}  // namespace

ReportForm::ReportForm(World& world, Dialogs& dialogs, QWidget* parent, const QString& tetrode, int c)
    : QMainWindow(parent),
      world_(world),
      dialogs_(dialogs),
      fileName_(FileNameWithTetrode(tetrode, {QString("cluster %1").arg(c), "report"})) {
  setAttribute(Qt::WA_DeleteOnClose);
  setObjectName("frmReport");
  setWindowTitle(TitleWithTetrode("Analysis Report Sheet", tetrode, c));
  LayOut();
  MakeMenu();
  connect(&Timer1_, &QTimer::timeout, sheet_, &ReportSheet::ShowTime);
  Timer1_.start(kSecond);
  sheet_->ShowTime();
}

void ReportForm::LayOut() {
  sheet_ = new ReportSheet;
  auto* scroll = new QScrollArea;
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidget(sheet_);
  scroll->setAlignment(Qt::AlignCenter);
  setCentralWidget(scroll);
}

void ReportForm::MakeMenu() {
  QMenu* file = menuBar()->addMenu("&File");
  file->setObjectName("mnuFile");
  const auto entry = [&](const QString& name, const QString& caption, const QKeySequence& key,
                         void (ReportForm::*handler)()) {
    QAction* action = file->addAction(caption);
    action->setObjectName(name);
    action->setShortcut(key);
    connect(action, &QAction::triggered, this,
            [this, handler] { RunCommand(world_, [this, handler] { (this->*handler)(); }); });
  };
  entry("mnuFilePrint", "&Print", QKeySequence::Print, &ReportForm::mnuFilePrint_Click);
  entry("mnuFileSave", "&Save As...", QKeySequence::Save, &ReportForm::mnuFileSave_Click);
  QAction* leave = file->addAction("&Close");
  leave->setShortcut(Qt::Key_Escape);
  connect(leave, &QAction::triggered, this, &QWidget::close);
  AddWindowMenu(menuBar(), this);
}

void ReportForm::Show(const Report& report, const QString& title) {
  sheet_->Fill(world_, report, title);
  const QSize whole(sheet_->width() + 4, sheet_->height() + menuBar()->sizeHint().height() + 4);
  setMinimumSize(whole.boundedTo(screen()->availableGeometry().size() / 2));
  PlaceResult(this, whole);
  show();
  sheet_->Align();
}

void ReportForm::mnuFilePrint_Click() {
  for (QCustomPlot* plot : findChildren<QCustomPlot*>()) plot->replot();
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageOrientation(QPageLayout::Landscape);
  const int copies = dialogs_.Print(this, printer);
  if (copies < 1) return;
  try {
    PrintSheet(*sheet_, sheet_->Title(), printer, copies);
  } catch (const std::exception& error) {
    world_.AppendMessage("The report was not printed: " + SentenceOf(error));
    world_.ShowMessage("You've reached errorhandler", {});
  }
}

void ReportForm::mnuFileSave_Click() {
  const QString path = dialogs_.SaveFile(
      this, {"Save Report", "PDF document (*.pdf)|*.pdf|PNG picture (*.png)|*.png", fileName_ + ".pdf", "pdf"});
  if (path.isEmpty()) return;
  const QByteArray bytes = path.endsWith(".png", Qt::CaseInsensitive)
                               ? PngOf(SheetImage(*sheet_, kPictureScale))
                               : SheetPdf(*sheet_, sheet_->Title(), SavedPage(), kSavedDotsPerInch);
  SavePictureBytes(bytes, PathOf(path));
}

}  // namespace pallomir
