#pragma once

#include <optional>
#include <vector>

#include "gui/live/live_window.h"
#include "gui/live/pair_grid.h"

class QLabel;

namespace pallomir {

/// "Pairs": linked projections, of the wires in the family of parameters on view or of pairs that the user chose.
class PairsWindow : public LiveWindow {
  Q_OBJECT

 public:
  explicit PairsWindow(Dialogs& dialogs);

  void ShowState(const LiveState& state) override;
  QWidget* Content() const override { return grid_; }
  void Finish() override { grid_->DrawRest(); }
  bool Finished() const override { return !grid_->Drawing(); }
  void Remember(Preferences& preferences) const override;
  void Recall(const Preferences& preferences) override;

  /// The pairs that the user chose; empty for those of the family on view.
  const std::vector<ParameterPair>& Chosen() const { return chosen_; }
  void Choose(std::vector<ParameterPair> pairs);

 protected:
  void AddEntries(QMenu& menu, QPoint at) override;

 private:
  void Hover(std::optional<size_t> pair, QPointF pixel);

  std::vector<ParameterPair> chosen_;
  PairGrid* grid_;
  QLabel* spike_;
  /// Of the last ShowState(), while the window is visible.
  std::optional<LiveState> state_;
  std::optional<ParameterPair> onView_;
};

/// The pairs of the first four wires in the family of `pair`, or of the peaks if it is in none.
std::vector<ParameterPair> WirePairs(ParameterPair pair);

}  // namespace pallomir
