#include "gui/viewers/report_sheet.h"

#include <qcustomplot.h>

#include <QtWidgets>

#include "gui/controls/controls.h"
#include "gui/viewers/figures.h"
#include "gui/viewers/report_plots.h"
#include "gui/viewers/small_plots.h"
#include "pallomir/files/platform.h"
#include "pallomir/session/work_pace.h"

namespace pallomir {

namespace {

// The sheet has the proportions of A4 landscape.
constexpr int kWidth = 1000;
constexpr int kHeight = 707;

constexpr const char* kPaper = R"(
QWidget#sheet { background: white; }
QWidget#sheet QLabel { color: #1b2230; }
QWidget#sheet QLabel[quiet="true"] { color: #5b6678; }
)";

QString OrNone(double value, const QString& unit = {}) {
  return std::isfinite(value) ? Figure(value) + unit : QString("n/a");
}

QString OrNone(const std::optional<double>& value) {
  return OrNone(value.value_or(kNotKnown));
}

/// Per cent, with the limits of estimates that have no solution.
QString PerCent(const Measured& share) {
  if (*share.Why != '\0') return share.Value < 1 ? "> 50" : "100";
  return QString::number(100 * share.Value, 'f', share.Value < 0.1 ? 2 : 1);
}

/// "1.20 % (95 %: 0.41 to 3.12 %)".
QString EstimateText(const Estimate& estimate) {
  if (!estimate.Value.Known()) return "n/a";
  return QString("%1 % (95 %: %2 to %3 %)").arg(PerCent(estimate.Value), PerCent(estimate.Low), PerCent(estimate.High));
}

QString ViolationsText(const RefractoryMeasures& refractory) {
  if (!refractory.Share.Value.Known()) return "n/a";
  return QString("%1 of %2, %3")
      .arg(Whole(static_cast<double>(refractory.Short)), Whole(static_cast<double>(refractory.Intervals)),
           EstimateText(refractory.Share));
}

QString FiguresOf(const Report& report) {
  const Isolation& apart = report.Measures.Apart;
  const QStringList train = {"Spikes " + Whole(static_cast<double>(report.Spikes.Time.size())),
                             "Mean rate " + OrNone(report.MeanRate, " spikes/s"),
                             "Intervals below 2 ms " + ViolationsText(report.Refractory)};
  const QStringList quality = {"Contamination by one cell " + EstimateText(report.Refractory.ContaminationByOne),
                               "by many " + EstimateText(report.Refractory.ContaminationByMany),
                               "Isolation distance " + OrNone(apart.IsolationDistance),
                               "L-ratio " + OrNone(apart.LRatio)};
  const QStringList behaviour = {"Spatial information " + OrNone(report.Rate.Information, " bits/spike"),
                                 "Fields " + Whole(static_cast<double>(report.Behaviour.Place.Fields.size())),
                                 "Grid score " + OrNone(report.Behaviour.Grid.Score.Value),
                                 "Mean vector length " + OrNone(report.Direction.VectorLength) +
                                     (std::isfinite(report.Direction.VectorDirection)
                                          ? QString(" at %1°").arg(report.Direction.VectorDirection, 0, 'f', 0)
                                          : QString())};
  QStringList lines;
  for (const QStringList& figures : {train, quality, behaviour}) lines << figures.join("  ·  ");
  return lines.join('\n');
}

QString NoteText(const ClusterNote& note) {
  const QString rating = QString::fromStdString(note.Rating), remarks = QString::fromStdString(note.Remarks).trimmed();
  if (rating.isEmpty() && remarks.isEmpty()) return "Not graded.";
  return (rating.isEmpty() ? QString("Not graded") : rating) + (remarks.isEmpty() ? QString() : ": " + remarks);
}

QLabel* MakeText(const QString& name, double points, bool bold = false) {
  auto* label = MakeLabel({});
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);  // it shows notes and file names
  QFont font = label->font();
  font.setPointSizeF(points);
  font.setBold(bold);
  label->setFont(font);
  return label;
}

/// The short title of a plot, and the plot below it.
QCustomPlot* AddPicture(QGridLayout* grid, const QString& name, const QString& caption, int row, int column) {
  auto* label = MakeText({}, 9, true);
  label->setText(caption);
  auto* plot = Named(new QCustomPlot, name, caption, caption);
  grid->addWidget(label, row, column, Qt::AlignHCenter);
  grid->addWidget(plot, row + 1, column);
  return plot;
}

}  // namespace

QString ReportTitle(int c, const std::filesystem::path& spikeFile) {
  return QString("Cluster %1 - %2").arg(c).arg(QString::fromStdString(NameText(spikeFile)));
}

ReportSheet::ReportSheet() {
  setObjectName("sheet");
  setStyleSheet(kPaper);
  setAttribute(Qt::WA_StyledBackground);
  setFixedSize(kWidth, kHeight);
  lblReportTitle_ = MakeText("lblReportTitle", 15, true);
  lblTime_ = MakeText("lblTime", 9);
  lblTime_->setText("time/date");
  lblFigures_ = MakeText("lblFigures", 9.5);
  lblClNote_ = MakeText("lblClNote", 10, true);
  lblRemarks_ = MakeText("lblRemarks", 8);
  for (QLabel* label : {lblFigures_, lblClNote_, lblRemarks_}) label->setWordWrap(true);
  lblFigures_->setToolTip(PlainToolTip(
      "Contamination: the share of spikes that are other cells', if they come from one other cell or from many"));
  for (QLabel* label : {lblTime_, lblRemarks_}) label->setProperty("quiet", true);
  auto* maps = MakeText("lblMaps", 9, true);
  maps->setText("- MAPS -");

  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(16);  // columns of equal width
  grid->setVerticalSpacing(4);
  picOccMap_ = AddPicture(grid, "picOccMap", "Occupancy", 0, 0);
  picRateMap_ = AddPicture(grid, "picRateMap", "Rate", 0, 1);
  picSpikeMap_ = AddPicture(grid, "picSpikeMap", "Raw Spike", 0, 2);
  picWaveForm_ = AddPicture(grid, "picWaveForm", "Waveform Average", 0, 3);
  picMaxHeight_ = AddPicture(grid, "picMaxHeight", "Time vs. Max_Height", 2, 0);
  picXPos_ = AddPicture(grid, "picXPos", "Time vs. X_Pos", 2, 1);
  picYPos_ = AddPicture(grid, "picYPos", "Time vs. Y_Pos", 2, 2);
  picAngPos_ = AddPicture(grid, "picAngPos", "Time vs. Ang_Pos", 2, 3);
  grid->setRowStretch(1, 5);
  grid->setRowStretch(3, 4);
  for (int column = 0; column < 4; ++column) grid->setColumnStretch(column, 1);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(28, 22, 28, 20);
  column->setSpacing(8);
  column->addLayout(Row({lblReportTitle_, nullptr, lblTime_}));
  column->addWidget(lblFigures_);
  column->addWidget(maps);
  column->addLayout(grid, 1);
  column->addWidget(lblClNote_);
  column->addWidget(lblRemarks_);
}

void ReportSheet::Fill(World& world, const Report& report, const QString& title) {
  lblReportTitle_->setText(title);
  lblFigures_->setText(FiguresOf(report));
  lblClNote_->setText(NoteText(report.Note));
  lblRemarks_->setText(QString::fromStdString(report.Remarks));
  WorkPace pace(world);
  PlotMap(*picOccMap_, report.Occupancy, PrintStyle(*picOccMap_));
  PlotMap(*picRateMap_, report.Rate, PrintStyle(*picRateMap_));
  PlotSpikesOnPath(*picSpikeMap_, report);
  pace.Reached(0.1);
  PlotAverageWaveform(*picWaveForm_, report.Measures.Average, report.Measures.InMicrovolts, PrintStyle(*picWaveForm_));
  PlotSeries(*picMaxHeight_, report.Spikes, report.Spikes.MaxHeight, "counts");
  PlotSeries(*picXPos_, report.Spikes, report.SpikePositions.X, "pixels");
  pace.Reached(0.2);
  PlotSeries(*picYPos_, report.Spikes, report.SpikePositions.Y, "pixels");
  PlotSeries(*picAngPos_, report.Spikes, report.SpikePositions.Angle, "degrees", QCPRange(0, 360));
  pace.Reached(0.3);
}

void ReportSheet::Align() {
  const std::array maps{picOccMap_, picRateMap_, picSpikeMap_};
  AlignMaps(maps);
  for (QCustomPlot* plot : maps) plot->replot();
}

void ReportSheet::LayOutUnseen() {
  setAttribute(Qt::WA_DontShowOnScreen);
  setAttribute(Qt::WA_QuitOnClose, false);
  show();
  Align();
}

void ReportSheet::ShowTime() {
  const QLocale locale;
  const QString now = locale.toString(QTime::currentTime(), "h:mm:ss AP");
  // The text has the date too, so that it changes at midnight.
  if (lblTime_->text() != now)
    lblTime_->setText(locale.toString(QDate::currentDate(), QLocale::ShortFormat) + "  " + now);
}

QString ReportSheet::Title() const {
  return lblReportTitle_->text();
}

}  // namespace pallomir
