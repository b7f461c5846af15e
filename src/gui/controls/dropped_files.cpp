#include "gui/controls/dropped_files.h"

#include <QtWidgets>

namespace pallomir {

namespace {

QStringList FilesIn(const QMimeData* data) {
  QStringList files;
  const QList<QUrl> places = data->urls();
  for (const QUrl& place : places)
    if (place.isLocalFile()) files << place.toLocalFile();
  return files;
}

}  // namespace

DroppedFiles::DroppedFiles(std::function<void(const QStringList&)> take) : take_(std::move(take)) {
  qApp->installEventFilter(this);
}

bool DroppedFiles::eventFilter(QObject* watched, QEvent* event) {
  const bool isDrag =
      event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove || event->type() == QEvent::Drop;
  if (!isDrag && event->type() != QEvent::Show) return false;
  auto* widget = qobject_cast<QWidget*>(watched);
  if (!widget || QApplication::activeModalWidget()) return false;
  if (!isDrag) {
    if (widget->isWindow()) widget->setAcceptDrops(true);
    return false;
  }
  auto* drag = static_cast<QDropEvent*>(event);
  const QStringList files = FilesIn(drag->mimeData());
  if (files.isEmpty()) return false;
  drag->setDropAction(Qt::CopyAction);
  drag->accept();
  if (event->type() == QEvent::Drop) QTimer::singleShot(0, this, [this, files] { take_(files); });
  return true;
}

}  // namespace pallomir
