#pragma once

#include <QStringList>

#include "gui/controls/dialogs.h"
#include "gui/live/cluster_table.h"
#include "gui/live/live_window.h"

class QSortFilterProxyModel;
class QTableView;

namespace pallomir {

/// "Clusters": a table of all clusters and their measures.
class ClustersWindow : public LiveWindow {
  Q_OBJECT

 public:
  explicit ClustersWindow(Dialogs& dialogs);

  void AddWants(const Session& session, LiveWants& wants) const override;
  void ShowState(const LiveState& state) override;
  QWidget* Content() const override;
  void Remember(Preferences& preferences) const override;
  void Recall(const Preferences& preferences) override;

  /// The names of the columns that are shown, "isolation_distance"; those of grade and remark are "grade" and "remark".
  QStringList ShownColumns() const;
  void ShowColumns(const QStringList& names);

 private:
  void OfferColumns(QPoint at);
  void Copy();
  void SaveTable();
  /// The table as it is shown, its fields separated by `separator`; quoted where they contain it if `quote`.
  QString AsText(QChar separator, bool quote) const;
  static QString NameOfColumn(int column);

  ClusterTable* table_;
  QSortFilterProxyModel* sorted_;
  QTableView* view_;
  QString tetrode_;
  /// The selection is being set to the chosen cluster.
  bool following_ = false;
};

}  // namespace pallomir
