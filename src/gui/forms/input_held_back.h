#pragma once

#include <QObject>
#include <functional>

namespace pallomir {

/// An application-wide event filter during a long operation: Esc stops it; other keys and clicks are discarded, so that
/// no control changes without effect. Message boxes of the operation itself work normally.
class InputHeldBack : public QObject {
 public:
  InputHeldBack(std::function<void()> stop, std::function<void()> refuse)
      : stop_(std::move(stop)), refuse_(std::move(refuse)) {}

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  std::function<void()> stop_;
  std::function<void()> refuse_;
};

}  // namespace pallomir
