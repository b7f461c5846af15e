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
  void Remember(Preferences& preferences) const override;
  void Recall(const Preferences& preferences) override;

 protected:
  void AddEntries(QMenu& menu, QPoint at) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void MakeFigures();
  void MakePictures();
  /// Lays the pictures out in as many columns as have room.
  void Arrange();
  void ShowFigures(const LiveCluster& cluster, const LiveCut& cut);
  void ShowPictures(const LiveCluster& cluster, const LiveCut& cut);
  /// The picture under a position on the screen; empty if there is none.
  std::optional<size_t> PictureAt(QPoint at) const;
  void CopyPicture(size_t index);
  void SavePictureOf(size_t index);

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
