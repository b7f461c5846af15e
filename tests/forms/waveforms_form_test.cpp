// The waveform viewer: stepping, playing, redrawing.

#include "form_tests.h"
#include "pallomir/recorded/waveform_file.h"
#include "program.h"

using namespace pallomir;

class WaveformsFormTest : public QObject {
  Q_OBJECT

 private slots:
  void SpikesAreSteppedThrough() {
    Program program(20);
    WriteWaveforms(program, 15);
    program.Load();
    program.Type("txtStartEvent", "2");
    program.Click("cmdLoadPoints");
    QWidget* form = Open(program);
    QVERIFY(form->windowTitle().startsWith("Waveforms") && form->windowTitle().endsWith("TT1"));
    const auto record = [&] { return Box(form, "txtTimestamp")->text(); };
    Press(form, "cmdBack");
    QCOMPARE(record(), "");
    Press(form, "cmdForward");  // cluster 0 is ticked: no cluster was chosen
    Press(form, "cmdForward");
    QCOMPARE(record(), "3");
    QVERIFY(Drawn(form) > 0);
    Press(form, "cmdBack");
    Press(form, "cmdBack");
    QCOMPARE(record(), "2");
    QCOMPARE(Status(form), "There are no earlier spikes of the ticked clusters.");
    Press(form, "cmdClear");
    QCOMPARE(Drawn(form), 0);
    Box<QCheckBox>(form, "chkCluster(0)")->setChecked(false);
    Press(form, "cmdResetToStart");
    Press(form, "cmdForward");
    QCOMPARE(Drawn(form), 0);
    QVERIFY(program.Answers.Messages.isEmpty());
  }

  void MissingWaveformsAreNeitherShownNorCountedAsShown() {
    Program program(20);
    WriteWaveforms(program, 15);
    program.Load();
    QWidget* form = Open(program);
    const auto record = [&] { return Box(form, "txtTimestamp")->text(); };
    for (int i = 0; i < 15; ++i) Press(form, "cmdForward");
    QVERIFY(Drawn(form) > 0);
    Press(form, "cmdForward");
    QCOMPARE(record(), "15");
    QCOMPARE(Drawn(form), 0);
    QCOMPARE(Status(form), "No waveform is stored for spike 15.");

    // All of them superimposed; a second click would stop it.
    Box<QCheckBox>(form, "chkOverlay")->setChecked(true);
    Press(form, "cmdResetToStart");
    Press(form, "cmdShowAll");
    QTRY_COMPARE(record(), "19");
    QTRY_COMPARE(Status(form), "15 spikes shown; no waveform is stored for 5 more.");
    program.Answers.FilesToOpen = {program.Path("traces.png")};
    QTest::keyClick(form, Qt::Key_S);
    QVERIFY(!QImage(program.Path("traces.png")).isNull());
    QCOMPARE(program.Answers.Asked.FileName, "TT1 waveforms.png");

    // The file is not kept open: if it is replaced, the new one is drawn next.
    WriteWaveforms(program, 20);
    QFile::rename(program.Path("TT1/TT1.waveforms"), program.Path("TT1/new"));
    Press(form, "cmdZoomOut");
    QVERIFY(Status(form).contains("TT1.waveforms does not exist"));
    QCOMPARE(Drawn(form), 0);
    QFile::rename(program.Path("TT1/new"), program.Path("TT1/TT1.waveforms"));
    Press(form, "cmdBack");
    QVERIFY(Drawn(form) > 0);
    QCOMPARE(Status(form), "");
    QVERIFY(program.Answers.Messages.isEmpty());
  }

  void WithoutTheFileNoSpikeIsSkipped() {
    Program program(20);
    program.Load();
    QWidget* form = Open(program);
    for (const char* button : {"cmdForward", "cmdForward", "cmdShowAll"}) {
      Press(form, button);
      QTRY_COMPARE(program.Answers.Messages.size(), 1);
      QVERIFY(program.Answers.Messages.takeFirst().contains("TT1.waveforms"));
    }
    QTest::qWait(50);
    QVERIFY2(program.Answers.Messages.isEmpty(), "it is said once");
    WriteWaveforms(program, 20);
    Press(form, "cmdForward");
    QCOMPARE(Box(form, "txtTimestamp")->text(), "0");
  }

  void ALongOverlayIsDrawnInSlices() {
    Program program(20'000);
    QVERIFY(QFile(program.Path("TT1/TT1.waveforms")).open(QIODevice::WriteOnly));
    QVERIFY(QFile::resize(program.Path("TT1/TT1.waveforms"), 20'000 * qint64{kWaveformRecordBytes}));
    program.Load();
    QWidget* form = Open(program);
    const QString all = QString::fromUtf8("20\u202f000");
    Box<QCheckBox>(form, "chkOverlay")->setChecked(true);
    Press(form, "cmdShowAll");
    QTRY_COMPARE_WITH_TIMEOUT(Status(form), all + " spikes shown.", 60'000);

    // Redrawing shows its progress; Stop ends it, and so does Esc, which leaves the window open.
    for (const bool escape : {false, true}) {
      Press(form, "cmdZoomOut");
      QVERIFY(Status(form).startsWith("Drawing: ") && Status(form).contains("of " + all));
      if (escape)
        QTest::keyClick(form, Qt::Key_Escape);
      else
        Press(form, "cmdStop");
      QVERIFY(Status(form).startsWith("Stopped; ") && form->isVisible());
      const QString stopped = Status(form);
      QTest::qWait(60);
      QCOMPARE(Status(form), stopped);
    }
    // Resizing starts it over; each waveform is drawn once.
    Press(form, "cmdZoomOut");
    form->resize(form->width() + 60, form->height() - 40);
    Box<QComboBox>(form, "cboHeight")->setCurrentIndex(1);
    QTRY_COMPARE_WITH_TIMEOUT(Status(form), all + " spikes shown.", 60'000);
    QTest::keyClick(form, Qt::Key_Escape);
    QVERIFY(!form->isVisible());
  }

 private:
  /// The four wires of a tetrode, for records 0..count-1.
  static void WriteWaveforms(const Program& program, int count) {
    QByteArray bytes(count * static_cast<int>(kWaveformRecordBytes), '\0');
    for (int n = 0; n < count; ++n)
      for (int k = 0; k < 4 * kBlockSamples; ++k)
        StoreLittleEndian(reinterpret_cast<unsigned char*>(bytes.data()) + 2048 * n + 2 * k,
                          static_cast<int16_t>(10 * n + 50));
    program.Write("TT1/TT1.waveforms", bytes);
  }
  static QWidget* Open(const Program& program) {
    program.Click("cmdShowWaveforms");
    QApplication::processEvents();
    return program.Get("Waveforms");
  }
  static void Press(const QWidget* form, const char* name) { Box<QPushButton>(form, name)->click(); }
  static QString Status(const QWidget* form) { return Box<QLabel>(form, "status")->text(); }

  /// The number of pixels of the drawing that are not black.
  static int Drawn(const QWidget* form) {
    const QImage image = Box<QWidget>(form, "waveforms")->grab().toImage().convertToFormat(QImage::Format_RGB32);
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x) count += (image.pixel(x, y) & 0xFFFFFF) != 0;
    return count;
  }
};

static const bool added = AddFormTest<WaveformsFormTest>();

#include "waveforms_form_test.moc"
