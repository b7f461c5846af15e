// Analysing a cluster from the controls: analyses, the report.

#include <qcustomplot.h>

#include "form_tests.h"
#include "pallomir/analyses/measure_sources.h"
#include "pallomir/clusters/classify.h"
#include "pallomir/results/write_measures.h"
#include "program.h"
#include "support/spike_files.h"

using namespace pallomir;

class AnalysesFormsTest : public QObject {
  Q_OBJECT

 private slots:
  void EveryAnalysisShowsItsWindow() {
    Program program;
    CutAll(program);
    WriteWalk(program);
    const std::pair<const char*, const char*> analyses[] = {{"cmdRateMap", "Cluster 3 - Rate map"},
                                                            {"cmdOccMap", "Occupancy"},
                                                            {"cmd2DAutoCorr", "Cluster 3 - Spatial autocorrelation"},
                                                            {"cmdAutoCorr", "Cluster 3 - "},
                                                            {"cmdLogISI", "Cluster 3 - "},
                                                            {"cmdDirection", "Cluster 3 - "}};
    QSet<QWidget*> before = Windows();
    for (const auto& [button, title] : analyses) {
      program.Click(button);
      QApplication::processEvents();
      QVERIFY2(program.Answers.Messages.isEmpty(), qPrintable(program.Answers.Messages.join("; ")));
      const QSet<QWidget*> opened = Windows() - before;
      QCOMPARE(opened.size(), 1);
      QVERIFY2((*opened.begin())->windowTitle().startsWith(title), qPrintable((*opened.begin())->windowTitle()));
      before = Windows();
    }
    QVERIFY(!program.Shared.TemporaryMode);
    QVERIFY(program.Messages().endsWith("Exit"));
  }

  void GrayscaleAppliesToOneRateMapAndToAllAutocorrelations() {
    Program program;
    CutAll(program);
    WriteWalk(program);
    auto* rate = program.Get("cmdRateMap");
    auto* correlation = program.Get("cmd2DAutoCorr");
    program.Form.findChild<QAction*>("mnu2DACorrGrayscale")->trigger();
    QCOMPARE(correlation->property("Tag").toString(), "Gray");
    program.Form.findChild<QAction*>("mnuGrayScale")->trigger();
    QCOMPARE(rate->property("Tag").toString(), "Color");
    program.Form.findChild<QAction*>("mnu2DACorrColor")->trigger();
    QCOMPARE(correlation->property("Tag").toString(), "Color");
    // An analysis that ends early keeps its grayscale.
    program.Type("txtPosFile", "");
    program.Form.findChild<QAction*>("mnuGrayScale")->trigger();
    QCOMPARE(program.Answers.Messages.takeLast(), "|Must specify a Position File");
    QCOMPARE(rate->property("Tag").toString(), "Gray");
    QVERIFY(program.Shared.TemporaryMode);
  }

  void TheReportIsShownPrintedAndSaved() {
    Program program;
    CutAll(program);
    WriteWalk(program);
    program.Click("cmdReport");
    QCOMPARE(program.Answers.Messages.takeLast(), "|Error.  Neuralynx .Ntt spike file is not present.");
    WriteSpikes(program);
    program.Click("cmdReport");
    QVERIFY2(program.Answers.Messages.isEmpty(), qPrintable(program.Answers.Messages.join("; ")));
    QWidget* sheet = nullptr;
    for (QWidget* window : Windows())
      if (window->objectName() == "frmReport") sheet = window;
    QVERIFY(sheet);
    QCOMPARE(sheet->windowTitle(), "Analysis Report Sheet — TT1, cluster 3");
    QCOMPARE(Box<QLabel>(sheet, "lblReportTitle")->text(), "Cluster 3 - TT1.Ntt");
    QVERIFY(Box<QLabel>(sheet, "lblFigures")
                ->text()
                .contains(QString("Spikes %1 ").arg(PointsInCluster(program.Shared, 3))));
    QVERIFY(!Box<QLabel>(sheet, "lblFigures")->text().contains("nan"));
    for (const char* picture :
         {"picOccMap", "picRateMap", "picSpikeMap", "picWaveForm", "picMaxHeight", "picXPos", "picYPos", "picAngPos"})
      QVERIFY2(Box<QCustomPlot>(sheet, picture)->plottableCount() > 0, picture);

    program.Answers.FilesToOpen = {program.Path("report.pdf"), program.Path("report.png")};
    for (int i = 0; i < 2; ++i) sheet->findChild<QAction*>("mnuFileSave")->trigger();
    QCOMPARE(program.Answers.Asked.FileName, "TT1 cluster 3 report.pdf");
    QVERIFY(QFileInfo(program.Path("report.pdf")).size() > 5000);
    QVERIFY(!QImage(program.Path("report.png")).isNull());
    program.Answers.PrintTo = program.Path("printed.pdf");
    sheet->findChild<QAction*>("mnuFilePrint")->trigger();
    QVERIFY(!QFile::exists(program.Path("printed.pdf")));
    program.Answers.Copies = 1;
    sheet->findChild<QAction*>("mnuFilePrint")->trigger();
    QVERIFY(QFileInfo(program.Path("printed.pdf")).size() > 5000);
    program.Answers.PrintTo = program.Path("no such folder/printed.pdf");
    sheet->findChild<QAction*>("mnuFilePrint")->trigger();
    QCOMPARE(program.Answers.Messages, QStringList{"|You've reached errorhandler"});
  }

  void AllReportsAreOneDocumentWithBookmarks() {
    Program program;
    const auto report = [&](const QStringList& to = {}) {
      program.Answers.FilesToOpen = to;
      program.Get<QAction>("mnuAllReports")->trigger();
      return program.Answers.Messages.isEmpty() ? QString() : program.Answers.Messages.takeLast();
    };
    program.Start();
    QCOMPARE(report(), QString("|Need to Load Points first"));
    program.Click("cmdLoadPoints");
    QCOMPARE(report(), QString("|No cluster has a boundary yet: there is nothing to report."));
    program.Click("lblNewCluster(3)");
    program.DrawPolygon({{50, 5}, {950, 5}, {950, 95}, {50, 95}});
    program.Click("lblNewCluster(5)");
    program.DrawPolygon({{0, 0}, {40, 0}, {40, 99}, {0, 99}});
    WriteWalk(program);
    QCOMPARE(report(), QString("|Error.  Neuralynx .Ntt spike file is not present."));
    WriteSpikes(program);
    QCOMPARE(report({""}), QString());
    QCOMPARE(program.Answers.Asked.FileName, QString("TT1 reports.pdf"));
    const QStringList before = QDir(program.Path("TT1")).entryList(QDir::Files | QDir::Hidden);
    const QString file = program.Path("all.pdf");
    QCOMPARE(report({file}), QString());
    QCOMPARE(QDir(program.Path("TT1")).entryList(QDir::Files | QDir::Hidden), before);
    QVERIFY(!program.Shared.TemporaryMode);
    QCOMPARE(program.Shared.CurrentCluster, 5);

    // As another program reads it.
    const auto qpdf = [](const QStringList& arguments) {
      QProcess process;
      process.start("qpdf", arguments);
      return process.waitForFinished() && process.exitCode() == 0 ? process.readAllStandardOutput() : QByteArray();
    };
    QVERIFY2(qpdf({"--check", file}).contains("No syntax or stream encoding errors"), "is qpdf installed?");
    QCOMPARE(qpdf({"--show-npages", file}).trimmed(), QByteArray("2"));
    const QByteArray json = qpdf({"--json=2", "--json-key=outlines", file});
    const QJsonArray outline = QJsonDocument::fromJson(json).object().value("outlines").toArray();
    QCOMPARE(outline.size(), 2);
    for (int i = 0; i < 2; ++i) {
      QCOMPARE(outline[i].toObject().value("title").toString(), i == 0 ? "Cluster 3" : "Cluster 5");
      QCOMPARE(outline[i].toObject().value("destpageposfrom1").toInt(), i + 1);
    }

    // Stopped, the earlier document stays.
    QVERIFY(QFile(file).resize(7));
    QTimer::singleShot(0, [&] { QTest::keyClick(program.View(), Qt::Key_Escape); });
    QCOMPARE(report({file}), QString());
    QCOMPARE(QFileInfo(file).size(), 7);
    QCOMPARE(program.Form.statusBar()->findChild<QLabel*>()->text(), QString("Stopped; nothing was changed."));
  }

  void MeasuresAreExportedByTheExtension() {
    Program program;
    CutAll(program);
    WriteWalk(program);
    const auto exportTo = [&](const QString& path) {
      program.Answers.FilesToOpen = {path};
      program.Get<QAction>("mnuExportMeasures")->trigger();
      QFile file(path);
      return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    const auto status = [&] { return program.Form.statusBar()->findChild<QLabel*>()->text(); };
    const QByteArray without = exportTo(program.Path("a.csv"));
    QCOMPARE(program.Answers.Asked.FileName, QString("TT1 measures.csv"));
    QVERIFY(status().startsWith("Clusters measured: 1. There is no spike file "));
    WriteSpikes(program);
    const QByteArray csv = exportTo(program.Path("a.csv")), json = exportTo(program.Path("b.JSON"));
    QCOMPARE(status(), QString("Clusters measured: 1."));
    const MeasureSources sources = SourcesOf(program.Shared, program.Shared.DataDirectory / ".." / "Pos.p", true);
    const MeasuredCut cut = MeasureClusters(program.Shared, sources);
    QVERIFY(csv != without);
    QCOMPARE(csv.toStdString(), MeasuresCsv(cut));
    QCOMPARE(json.toStdString(), MeasuresJson(cut));
    QVERIFY(!program.Shared.TemporaryMode);
    // Stopped, the earlier table stays.
    program.Write("a.csv", "mine");
    QTimer::singleShot(0, [&] { QTest::keyClick(program.View(), Qt::Key_Escape); });
    QCOMPARE(exportTo(program.Path("a.csv")), QByteArray("mine"));
    QCOMPARE(status(), QString("Stopped; nothing was changed."));
    QVERIFY(program.Answers.Messages.isEmpty());
  }

 private:
  static void WriteSpikes(const Program& program) {
    std::string spikes = SpikeFileHeader();
    for (int n = 0; n < 1000; ++n) spikes += SpikeBytes(1'000'000U + 1000U * static_cast<unsigned>(n), n % 7 + 1);
    program.Write("TT1/TT1.Ntt", QByteArray::fromStdString(spikes));
  }

  /// Cluster 3 takes most of the points.
  static void CutAll(Program& program) {
    program.Load();
    program.Click("lblNewCluster(3)");
    program.DrawPolygon({{50, 5}, {950, 5}, {950, 95}, {50, 95}});
  }

  /// Positions during the recording: a walk to and fro.
  static void WriteWalk(const Program& program) {
    QByteArray text;
    for (int i = 0; i < 40; ++i)
      text += QString("%1 %2 %3 %4\n")
                  .arg(1'000'000 + 25'000 * i)
                  .arg(100 + 5 * (i % 20))
                  .arg(200 + 3 * (i % 13))
                  .arg(9 * i)
                  .toUtf8();
    program.Write("Pos.p", text);
  }

  static QSet<QWidget*> Windows() {
    QSet<QWidget*> windows;
    for (QWidget* window : QApplication::topLevelWidgets())
      if (window->isVisible()) windows << window;
    return windows;
  }
};

static const bool added = AddFormTest<AnalysesFormsTest>();

#include "analyses_forms_test.moc"
