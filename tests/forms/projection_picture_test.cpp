// The projection as a picture for documents.

#include <QSvgRenderer>

#include "form_tests.h"
#include "pallomir/clusters/classify.h"
#include "program.h"

using namespace pallomir;

namespace {

int PixelsOf(const QImage& image, QColor colour) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y) == colour;
  return count;
}

}  // namespace

class ProjectionPictureTest : public QObject {
  Q_OBJECT

 private slots:
  void CtrlCCopiesPointsAtTwiceTheResolutionWithALegend() {
    Program program;
    program.Load();
    program.Click("chkDrawClustBounds");
    program.Click("cmdHideCL0");
    program.Click("lblNewCluster(1)");
    program.DrawPolygon({{100, 10}, {300, 10}, {200, 90}});
    const QColor red(255, 0, 0);
    const int onScreen = program.Pixels(red);
    QVERIFY(onScreen > 20);
    program.View()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(program.View()));
    const auto copied = [&] {
      QTest::keyClick(program.View(), Qt::Key_C, Qt::ControlModifier);
      return QApplication::clipboard()->image();
    };
    const QImage picture = copied();
    QVERIFY(picture.width() > 2 * program.Surface()->width() + 40);
    QVERIFY(picture.height() > 2 * program.Surface()->height() + 20);
    const int legend = PixelsOf(picture, red) - 4 * onScreen;
    QVERIFY2(legend > 250 && legend <= 400, qPrintable(QString::number(legend)));
    QTest::keyClick(program.View(), Qt::Key_D);
    QVERIFY(copied() != picture);
    QTest::keyClick(program.View(), Qt::Key_D);
    program.Click("chkDisableClusterDisplay(1)");
    QCOMPARE(PixelsOf(copied(), red), 0);
  }

  void DrawingsHoldTextsLinesAndOneImage() {
    Program program;
    program.Load();
    program.Click("lblNewCluster(1)");
    program.DrawPolygon({{100, 10}, {300, 10}, {200, 90}});
    const auto saved = [&](const QString& name) {
      const QString path = program.Path(name);
      program.Answers.FilesToOpen = {path};
      program.Form.findChild<QAction*>("mnuSavePicture")->trigger();
      QFile file(path);
      return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    const QByteArray svg = saved("a.svg");
    QCOMPARE(program.Answers.Asked.FileName, QString("TT1 projection MPeak-1 MPeak-2.png"));
    QVERIFY(QSvgRenderer(svg).isValid());
    QCOMPARE(svg.count("<image"), 1);
    for (const char* text : {"MPeak-1", "MPeak-2", "CL 1", "CL 0"}) QVERIFY2(svg.contains(text), text);
    QVERIFY2(svg.contains("stroke=\"#ff0000\""), "the boundary");
    QVERIFY(svg.contains('>' + QByteArray::number(static_cast<qint64>(PointsInCluster(program.Shared, 1))) + '<'));
    QVERIFY(saved("a.pdf").startsWith("%PDF"));
    const QByteArray png = saved("a.PNG");
    QVERIFY(QImage::fromData(png).width() > 2 * program.Surface()->width());
    QVERIFY(saved("a.bmp").isEmpty());
    QVERIFY(program.Answers.Messages.value(0).contains("use a name ending in .png, .svg or .pdf"));
  }
};

static const bool added = AddFormTest<ProjectionPictureTest>();

#include "projection_picture_test.moc"
