#include "gui/live/live_window.h"

#include <QtWidgets>

#include "gui/controls/chosen_path.h"
#include "gui/controls/run_command.h"

namespace pallomir {

namespace {

constexpr double kPixelScale = 3;

}  // namespace

LiveWindow::LiveWindow(const QString& name, const QString& title, const QString& what, Dialogs& dialogs)
    : dialogs_(dialogs) {
  setObjectName(name);
  setWindowTitle(title);
  setAccessibleName(title);
  setAccessibleDescription(what);
  toggleViewAction()->setToolTip(what);
  connect(this, &QDockWidget::visibilityChanged, this, &LiveWindow::Changed);
}

void LiveWindow::AddWants(const Session&, LiveWants&) const {}
void LiveWindow::Finish() {}
bool LiveWindow::Finished() const {
  return true;
}
void LiveWindow::Remember(Preferences&) const {}
void LiveWindow::Recall(const Preferences&) {}
void LiveWindow::AddEntries(QMenu&, QPoint) {}

DrawnPicture LiveWindow::WholePicture() const {
  QWidget* content = Content();
  const auto draw = [content](QPaintDevice& device, double scale) {
    QPainter painter(&device);
    painter.scale(scale, scale);
    content->render(&painter);
  };
  return {.Title = windowTitle(),
          .Size = content->size(),
          .PixelScale = kPixelScale,
          .Pixels =
              [draw, size = content->size()] {
                QImage image = MakeImage((QSizeF(size) * kPixelScale).toSize(), QImage::Format_RGB32);
                draw(image, kPixelScale);
                return image;
              },
          .Draw = [draw](QPaintDevice& device) { draw(device, 1); }};
}

void LiveWindow::SaveAs(const DrawnPicture& picture, const QString& name) {
  const QString path = dialogs_.SaveFile(this, {"Save picture", kPictureFilter, name + ".png", "png"});
  if (path.isEmpty()) return;
  const QPointer<LiveWindow> window(this);
  Dialogs& dialogs = dialogs_;
  try {
    SaveDrawnPicture(picture, PathOf(path));
  } catch (const std::exception& error) {
    dialogs.ShowMessage(window, QString::fromStdString(SentenceOf(error)), {});
  }
}

QVBoxLayout* LiveWindow::MakeContent() {
  auto* content = new QWidget;
  auto* column = new QVBoxLayout(content);
  column->setContentsMargins(6, 2, 6, 4);
  column->setSpacing(3);
  setWidget(content);
  return column;
}

void LiveWindow::AddText(QVBoxLayout* column, QLabel* text) {
  text->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  column->addWidget(text);
}

void LiveWindow::contextMenuEvent(QContextMenuEvent* event) {
  OpenMenu(event->globalPos());
}

void LiveWindow::OpenMenu(QPoint at) {
  QMenu menu;
  AddEntries(menu, at);
  if (!menu.isEmpty()) menu.addSeparator();
  menu.addAction("Copy picture", this, [this] { QApplication::clipboard()->setImage(WholePicture().Pixels()); });
  menu.addAction("Save picture...", this, [this] { SaveAs(WholePicture(), windowTitle()); });
  menu.exec(at);
}

}  // namespace pallomir
