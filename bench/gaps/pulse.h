#pragma once

#include <QElapsedTimer>
#include <QTimer>

namespace pallomir::bench {

/// Measures when the program processes events: a timer that is always due fires each time.
class Pulse : public QObject {
 public:
  Pulse() {
    QObject::connect(&timer_, &QTimer::timeout, this, [this] { Beat(); });
    timer_.start(0);
  }

  void Begin() {
    clock_.start();
    longest_ = 0;
    last_ = 0;
  }

  /// Milliseconds since Begin().
  double Elapsed() const { return static_cast<double>(clock_.nsecsElapsed()) / 1e6; }

  /// Processes events for so many milliseconds, so that work already started continues.
  void Watch(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
    Beat();
  }

  /// The longest time between two processings of events since Begin(), in milliseconds.
  double Longest() const { return longest_; }

 private:
  void Beat() {
    const double now = Elapsed();
    longest_ = std::max(longest_, now - last_);
    last_ = now;
  }

  QTimer timer_;
  QElapsedTimer clock_;
  double longest_ = 0;
  double last_ = 0;
};

}  // namespace pallomir::bench
