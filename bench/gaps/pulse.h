#pragma once

#include <QElapsedTimer>
#include <QTimer>

namespace pallomir::bench {

/// Feels when the program looks at its user: a timer that is always due fires at every look.
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

  /// Lets what was begun go on for so many milliseconds.
  void Watch(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
    Beat();
  }

  /// The longest time between two looks since Begin(), in milliseconds.
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
