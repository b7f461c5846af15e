#pragma once

#include <QObject>
#include <functional>

namespace pallomir {

/// An event filter for the whole application while a longer piece of work runs: Esc stops the work; other keys and
/// clicks are lost, so that no control changes that nothing answers to. Message boxes of the work itself are let be.
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
