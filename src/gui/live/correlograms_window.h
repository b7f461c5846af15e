#pragma once

#include <vector>

#include "gui/live/live_window.h"

class QLabel;

namespace pallomir {

class CorrelogramMatrix;

/// "Correlograms": of all pairs of the displayed clusters.
class CorrelogramsWindow : public LiveWindow {
  Q_OBJECT

 public:
  explicit CorrelogramsWindow(Dialogs& dialogs);

  void AddWants(const Session& session, LiveWants& wants) const override;
  void ShowState(const LiveState& state) override;

 private:
  CorrelogramMatrix* matrix_;
  QLabel* readOut_;
};

}  // namespace pallomir
