#pragma once

#include <array>
#include <optional>

#include "gui/controls/dialogs.h"
#include "gui/live/cell_plots.h"
#include "gui/live/live_window.h"

class QCheckBox;
class QCustomPlot;
class QGridLayout;
class QLabel;
class QTreeWidget;

namespace pallomir {

/// "Cell": everything about the chosen cluster on one sheet.
class CellWindow : public LiveWindow {
  Q_OBJECT

 public:
  explicit CellWindow(Dialogs& dialogs);

  void AddWants(const Session& session, LiveWants& wants) const override;
  void ShowState(const LiveState& state) override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void MakeFigures();
  void MakePictures();
  /// Lays the pictures out in as many columns as have room.
  void Arrange();
  void ShowFigures(const LiveCluster& cluster, const LiveCut& cut);
  void ShowPictures(const LiveCluster& cluster, const LiveCut& cut);
  void OfferPicture(size_t index, QPoint at);
  void SaveAs(size_t index);

  Dialogs& dialogs_;
  QLabel* heading_;
  QCheckBox* chkSpatialLags_;
  QTreeWidget* figures_;
  QWidget* sheet_;
  QGridLayout* grid_;
  int columns_ = 0;
  struct Picture {
    QWidget* Whole;  ///< with its caption
    QLabel* Caption;
    QCustomPlot* Plot;
    std::optional<CellPlot::Source> Drawn;
  };
  std::array<Picture, kCellPlots> pictures_{};
  /// What is shown, while the window is visible.
  std::optional<LiveState> state_;
};

}  // namespace pallomir
