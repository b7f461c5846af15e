#pragma once

#include <QObject>
#include <QStringList>
#include <functional>

namespace pallomir {

/// Takes files and folders that are dropped on any window of the program, while no modal one is open.
class DroppedFiles : public QObject {
 public:
  /// `take` is called with their paths once the drop has ended, so that it may show a message box.
  explicit DroppedFiles(std::function<void(const QStringList&)> take);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  std::function<void(const QStringList&)> take_;
};

}  // namespace pallomir
