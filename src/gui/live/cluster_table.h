#pragma once

#include <QAbstractTableModel>
#include <array>
#include <vector>

#include "gui/live/live_window.h"
#include "gui/live/shown_measures.h"

namespace pallomir {

/// The clusters of the cut as rows, with their measures, grades and remarks as columns. Qt::UserRole has what rows are
/// sorted by.
class ClusterTable : public QAbstractTableModel {
  Q_OBJECT

 public:
  /// Columns: the cluster's number, the measures, the grade, the remark.
  static int GradeColumn() { return 1 + static_cast<int>(ShownMeasures().size()); }
  static int RemarkColumn() { return GradeColumn() + 1; }

  void ShowState(const LiveState& state);
  /// The cluster of a row.
  int ClusterAt(int row) const { return rows_[static_cast<size_t>(row)].Cluster; }
  int RowOf(int cluster) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  struct Row {
    int Cluster = 0;
    Colour Shade = 0;
    LiveCluster Known;
    ClusterNote Note;
  };
  QVariant MeasureData(const Row& row, const ShownMeasure& measure, int role) const;
  static QVariant NumberData(const Row& row, int role);

  std::vector<Row> rows_;
  /// Without its clusters, which are in the rows.
  LiveCut about_;
};

}  // namespace pallomir
