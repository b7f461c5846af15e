// The report sheet, on screen and in files.

#include <qcustomplot.h>
#include <sys/resource.h>

#include <csignal>

#include "form_tests.h"
#include "gui/viewers/report_form.h"
#include "pallomir/results/compute_maps.h"
#include "program.h"
#include "support/recording_world.h"

using namespace pallomir;

namespace {

/// A cluster that fired at every `interval` microseconds of 10 minutes in which the animal went round a box.
Report ReportOf(int64_t interval) {
  Positions positions;
  for (int i = 0; i < 18'000; ++i) {
    positions.Time.push_back(i * 33'333);
    positions.X.push_back(300 + std::round(200 * std::cos(0.01 * i)));
    positions.Y.push_back(250 + std::round(150 * std::sin(0.013 * i)));
    positions.Direction.push_back(i % 360);
  }
  SpikeTimes spikes{{0, positions.Time.back()}, {}, 0, 0};
  for (int64_t time = 0; time <= spikes.Range.Last; time += interval) spikes.Times.push_back(time);
  Report report;
  report.Spikes.Time = spikes.Times;
  report.Spikes.Last = spikes.Range.Last;
  // In the first half of the time from 0 to 99, in the second from 900 to 999.
  for (size_t i = 0; i < spikes.Times.size(); ++i)
    report.Spikes.MaxHeight.push_back(static_cast<float>(i % 100 + (2 * i < spikes.Times.size() ? 0 : 900)));
  report.Path = TrackWithin(positions, spikes.Range);
  report.SampleOf = SamplesOfSpikes(report.Path, spikes.Times);
  report.Rate = RateMapOf(positions, report.Path, spikes);
  report.Occupancy = OccupancyMapOf(positions, report.Path, spikes.Range);
  report.SpikePositions = PositionsOfSpikes(report.SampleOf, report.Path.X, report.Path.Y, {300, 250});
  return report;
}

/// The sheet with its answers.
struct Sheet {
  RecordingWorld TheWorld;
  ScriptedDialogs Answers;
  QTemporaryDir Folder;
  QPointer<ReportForm> Form = new ReportForm(TheWorld, Answers, nullptr, "TT1", 3);

  explicit Sheet(const Report& report) {
    Form->Show(report, "Cluster 3");
    QApplication::processEvents();
  }
  ~Sheet() { delete Form; }
  QCustomPlot* Plot(const char* name) const { return Box<QCustomPlot>(Form, name); }
  QString Path(const char* name) const { return Folder.filePath(name); }
  QByteArray Print(const char* name, int copies) {
    Answers.PrintTo = Path(name);
    Answers.Copies = copies;
    Form->findChild<QAction*>("mnuFilePrint")->trigger();
    return Bytes(name);
  }
  QByteArray Bytes(const char* name) const {
    QFile file(Path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
};

/// No file can grow beyond `bytes`, as on a full disk.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) {
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit less{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &less);
  }
  ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before_); }

 private:
  rlimit before_;
};

}  // namespace

class ReportFormTest : public QObject {
  Q_OBJECT

 private slots:
  void ManyDotsAreDrawnWhereFewWouldBe() {
    for (const int64_t interval : {3'000, 1'000'000}) {
      Sheet sheet(ReportOf(interval));
      QCustomPlot* plot = sheet.Plot("picMaxHeight");
      const QImage drawn = plot->grab().toImage();
      const auto inkIn = [&](double minute, double height) {
        const int x = qRound(plot->xAxis->coordToPixel(minute)), y = qRound(plot->yAxis->coordToPixel(height));
        int ink = 0;
        for (int dx = -12; dx <= 12; ++dx)
          for (int dy = -5; dy <= 5; ++dy) ink += drawn.pixelColor(x + dx, y + dy).lightness() < 200;
        return ink;
      };
      plot->xAxis = plot->axisRect()->axis(QCPAxis::atBottom);
      plot->yAxis = plot->axisRect()->axis(QCPAxis::atLeft);
      QVERIFY(inkIn(2.5, 50) > 0 && inkIn(7.5, 950) > 0);
      QCOMPARE(inkIn(2.5, 950) + inkIn(7.5, 50) + inkIn(5, 500), 0);
    }
  }

  void MapsHaveOneSizeAndUnits() {
    Sheet sheet(ReportOf(20'000));
    const QSize size = sheet.Plot("picOccMap")->axisRect()->size();
    QVERIFY(size.width() > 120 && std::abs(size.width() * 3 - size.height() * 4) < 40);
    for (const char* map : {"picRateMap", "picSpikeMap"}) QCOMPARE(sheet.Plot(map)->axisRect()->size(), size);
    const auto unit = [&](const char* map) { return sheet.Plot(map)->findChild<QCPColorScale*>()->label(); };
    QVERIFY(unit("picOccMap").startsWith("s, highest "));
    QVERIFY(unit("picRateMap").startsWith("spikes/s, highest "));
  }

  void ASheetOfManySpikesIsASmallFile() {
    Sheet sheet(ReportOf(2'000));
    sheet.Answers.FilesToOpen = {sheet.Path("a.pdf")};
    sheet.Form->findChild<QAction*>("mnuFileSave")->trigger();
    QVERIFY(sheet.Bytes("a.pdf").size() > 10'000 && sheet.Bytes("a.pdf").size() < 1'000'000);
  }

  void EachCopyIsAPage() {
    Sheet sheet(ReportOf(1'000'000));
    QCOMPARE(sheet.Print("two.pdf", 2).count("/Type /Page\n"), 2);
    QVERIFY(sheet.Print("none.pdf", 0).isEmpty());
    QVERIFY(sheet.Answers.Messages.isEmpty() && sheet.TheWorld.Boxes.empty());
  }

  void FailedPrintingLeavesTheEarlierFile() {
    Sheet sheet(ReportOf(1'000'000));
    const QByteArray earlier = sheet.Print("a.pdf", 1);
    QVERIFY(earlier.startsWith("%PDF"));
    {
      const FullDisk full(5'000);
      QCOMPARE(sheet.Print("a.pdf", 1), earlier);
    }
    QCOMPARE(sheet.TheWorld.Boxes.size(), size_t{1});
    QCOMPARE(QString::fromStdString(sheet.TheWorld.Boxes[0]), "You've reached errorhandler");
    QCOMPARE(QDir(sheet.Folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"a.pdf"});
    QVERIFY(sheet.Print("no folder/a.pdf", 1).isEmpty());
    QCOMPARE(sheet.TheWorld.Boxes.size(), size_t{2});
  }

  void TextFromFilesIsPlainText() {
    Report report = ReportOf(1'000'000);
    report.Note.Remarks = "<img src=x.png>";
    Sheet sheet(report);
    for (const QLabel* label : sheet.Form->findChildren<QLabel*>()) QCOMPARE(label->textFormat(), Qt::PlainText);
    QVERIFY(Box<QLabel>(sheet.Form, "lblClNote")->text().contains("<img"));
    Qt::TextFormat format = Qt::AutoText;
    QTimer::singleShot(0, [&] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      format = box->textFormat();
      box->button(QMessageBox::No)->click();
    });
    QVERIFY(!DesktopDialogs().Confirm(nullptr, "Replace <b>this</b>?"));
    QCOMPARE(format, Qt::PlainText);
  }
};

static const bool added = AddFormTest<ReportFormTest>();

#include "report_form_test.moc"
