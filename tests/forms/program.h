#pragma once

#include <QPrinter>
#include <QtTest>
#include <QtWidgets>

#include "gui/controls/dialogs.h"
#include "gui/forms/main_form.h"
#include "pallomir/files/bytes.h"
#include "pallomir/files/parameter_header.h"
#include "pallomir/projection/view.h"
#include "pallomir/session/session.h"

namespace pallomir {

/// Answers every dialog at once and records the message boxes, as "title|text".
class ScriptedDialogs : public Dialogs {
 public:
  void ShowMessage(QWidget*, const QString& text, const QString& title) override { Messages << title + "|" + text; }
  QString OpenFile(QWidget*, const FileDialogOptions& options) override {
    Asked = options;
    return FilesToOpen.isEmpty() ? QString() : FilesToOpen.takeFirst();
  }

  QString SaveFile(QWidget*, const FileDialogOptions& options) override {
    Asked = options;
    return FilesToOpen.isEmpty() ? QString() : FilesToOpen.takeFirst();
  }
  int Print(QWidget*, QPrinter& printer) override {
    printer.setOutputFileName(PrintTo);
    return Copies;
  }
  bool Confirm(QWidget*, const QString& question) override {
    Questions << question;
    return Agree;
  }
  bool StartProgram(const QString& parameterFile) override {
    Started << parameterFile;
    return DesktopServes;
  }
  bool ShowDocument(const QString& file) override {
    Shown << file;
    return DesktopServes;
  }

  QStringList Messages;
  QStringList Questions;
  bool Agree = true;
  QString PrintTo;
  int Copies = 0;
  QStringList FilesToOpen;
  FileDialogOptions Asked;
  /// Parameter files that the program was started with, and documents shown.
  QStringList Started, Shown;
  bool DesktopServes = true;
};

/// A control of a form, by name.
template <class Control = QLineEdit>
Control* Box(const QWidget* form, const QString& name) {
  auto* control = form->findChild<Control*>(name);
  if (!control) qFatal("no control %s", qPrintable(name));
  return control;
}

/// A recording on disk and the program in its folder, set up as main() does.
class Program {
 public:
  /// `rows` spikes, 1000 µs apart from 1,000,000: MPeak-1 runs 0..rows-1, MPeak-2 repeats 0..99, PosX is 5, PosY 7.
  explicit Program(int rows = 1000, const QByteArray& videoSampling = "30\r\n") {
    QDir(folder_.path()).mkdir("TT1");
    Write("VideoSampling", videoSampling);
    QByteArray bytes(rows * static_cast<int>(kRowBytes), '\0');
    for (int r = 0; r < rows; ++r) {
      auto* row = reinterpret_cast<unsigned char*>(bytes.data()) + r * kRowBytes;
      StoreLittleEndian<uint64_t>(row, 1'000'000U + 1000U * static_cast<unsigned>(r));
      const auto set = [&](int p, double value) { StoreLittleEndian(row + 8 + 4 * p, static_cast<float>(value)); };
      set(0, r);
      set(1, r % 100);
      set(kRecordSlot, r);
      set(kPosX, 5);
      set(kPosY, 7);
    }
    Write("TT1/TT1.Ntt.parms", bytes);
    Answers.FilesToOpen = {Path("TT1/TT1.Ntt.parms")};
  }

  bool Start() {
    const bool started = Form.Form_Load();
    Form.show();
    View()->resize(400, 436);
    QApplication::processEvents();
    return started;
  }

  /// Started and loaded.
  void Load() {
    Start();
    Click("cmdLoadPoints");
  }

  QString Path(const QString& name) const { return folder_.filePath(name); }
  void Write(const QString& name, const QByteArray& bytes) const {
    QFile file(Path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) qFatal("cannot write the test's files");
  }

  template <class Control = QWidget>
  Control* Get(const QString& name) const {
    return Box<Control>(&Form, name);
  }
  QWidget* View() const {
    for (QWidget* window : QApplication::topLevelWidgets())
      if (window->objectName() == "Projections") return window;
    return nullptr;
  }
  QWidget* Surface() const { return View()->findChild<QWidget*>("surface"); }

  void Click(const QString& name) const { Get<QAbstractButton>(name)->click(); }
  QString Text(const QString& name) const { return Get<QLineEdit>(name)->text(); }
  void Type(const QString& name, const QString& text) const { Get<QLineEdit>(name)->setText(text); }
  void DoubleClick(const QString& name) const { QTest::mouseDClick(Get(name), Qt::LeftButton); }

  QString Messages() const { return Get<QPlainTextEdit>("txtMessages")->toPlainText(); }

  /// Chooses both parameters in the lists; the click on the Y list shows them.
  void Show(int x, int y) const {
    Get<QListWidget>("lstX_Axis")->setCurrentRow(x);
    auto* list = Get<QListWidget>("lstY_Axis");
    list->scrollToItem(list->item(y));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(y)).center());
    QApplication::processEvents();
  }

  /// The position on the surface of a value in the current projection.
  QPoint At(double x, double y) const {
    const pallomir::View view = ViewOf(Shared, Surface()->width(), Surface()->height());
    return QPointF(view.PixelX(x), view.PixelY(y)).toPoint();
  }
  /// Left clicks on all corners but the last, a right click on the last one.
  void DrawPolygon(const QList<QPointF>& corners) const {
    for (const QPointF& corner : corners)
      QTest::mousePress(Surface(), &corner == &corners.last() ? Qt::RightButton : Qt::LeftButton, {},
                        At(corner.x(), corner.y()));
    QApplication::processEvents();
  }
  void Drag(QPoint from, QPoint to) const {
    QTest::mousePress(Surface(), Qt::LeftButton, {}, from);
    QTest::mouseMove(Surface(), (from + to) / 2);
    QTest::mouseRelease(Surface(), Qt::LeftButton, {}, to);
    QApplication::processEvents();
  }

  /// The number of pixels of a colour on the surface.
  int Pixels(QColor colour) const {
    const QImage image = Surface()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x) count += image.pixel(x, y) == colour.rgb();
    return count;
  }

  Session Shared;
  ScriptedDialogs Answers;

 private:
  QTemporaryDir folder_;

 public:
  Main_Form Form{Shared, Answers};
};

}  // namespace pallomir
