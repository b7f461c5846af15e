#include "gui/live/clusters_window.h"

#include <QtWidgets>

#include "gui/controls/chosen_path.h"
#include "gui/controls/controls.h"
#include "gui/controls/run_command.h"
#include "gui/controls/titles.h"
#include "pallomir/files/save_file.h"

namespace pallomir {

namespace {

constexpr char kColumns[] = "clusters.columns";
const QStringList kUsual = {"spikes",
                            "rate",
                            "short_intervals",
                            "short_share",
                            "contamination_one",
                            "l_ratio",
                            "isolation_distance",
                            "information",
                            "vector_length",
                            "grid_score",
                            "grade",
                            "remark"};

/// Sorts by number where there is one; cells without a value come last.
class SortedClusters : public QSortFilterProxyModel {
 public:
  using QSortFilterProxyModel::QSortFilterProxyModel;

 protected:
  bool lessThan(const QModelIndex& left, const QModelIndex& right) const override {
    const QVariant a = left.data(Qt::UserRole), b = right.data(Qt::UserRole);
    if (a.isNull() != b.isNull()) return a.isNull() == (sortOrder() == Qt::DescendingOrder);
    if (a.typeId() == QMetaType::QString) return a.toString().localeAwareCompare(b.toString()) < 0;
    return a.toDouble() < b.toDouble();
  }
};

}  // namespace

ClustersWindow::ClustersWindow(Dialogs& dialogs)
    : LiveWindow("Clusters", "Clusters", "A table of all clusters and their measures", dialogs),
      table_(new ClusterTable),
      sorted_(new SortedClusters(this)),
      view_(Named(new QTableView, "clusterTable", "Clusters and their measures", {})) {
  table_->setParent(this);
  sorted_->setSourceModel(table_);
  view_->setModel(sorted_);
  view_->setSortingEnabled(true);
  view_->sortByColumn(0, Qt::AscendingOrder);
  view_->setSelectionBehavior(QAbstractItemView::SelectRows);
  view_->setSelectionMode(QAbstractItemView::SingleSelection);
  view_->setTabKeyNavigation(false);
  view_->setAlternatingRowColors(true);
  view_->setWordWrap(false);
  view_->verticalHeader()->hide();
  view_->verticalHeader()->setDefaultSectionSize(view_->fontMetrics().height() + 6);
  QHeaderView* header = view_->horizontalHeader();
  header->setSectionsMovable(true);
  header->setSectionResizeMode(QHeaderView::ResizeToContents);
  header->setContextMenuPolicy(Qt::CustomContextMenu);
  header->setHighlightSections(false);
  auto* cmdColumns = MakeButton("cmdColumns", "C&olumns", "Choose the measures that are shown");
  auto* cmdCopy = MakeButton("cmdCopyTable", "Copy", "Copy the table as it is shown (Ctrl+C)");
  auto* cmdSave = MakeButton("cmdSaveTable", "Save CSV", "Save the table as it is shown");
  QVBoxLayout* column = MakeContent();
  column->addLayout(Row({cmdColumns, cmdCopy, cmdSave, nullptr}));
  column->addWidget(view_, 1);
  ShowColumns(kUsual);
  connect(cmdColumns, &QPushButton::clicked, this,
          [this, cmdColumns] { OfferColumns(cmdColumns->mapToGlobal(QPoint(0, cmdColumns->height()))); });
  connect(header, &QWidget::customContextMenuRequested, this,
          [this, header](QPoint at) { OfferColumns(header->mapToGlobal(at)); });
  connect(cmdCopy, &QPushButton::clicked, this, &ClustersWindow::Copy);
  auto* copyKey = new QShortcut(QKeySequence::Copy, view_);
  copyKey->setContext(Qt::WidgetWithChildrenShortcut);
  connect(copyKey, &QShortcut::activated, this, &ClustersWindow::Copy);
  connect(cmdSave, &QPushButton::clicked, this, &ClustersWindow::SaveTable);
  connect(view_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this](const QModelIndex& row) {
    if (!following_ && row.isValid()) emit ClusterChosen(table_->ClusterAt(sorted_->mapToSource(row).row()));
  });
}

void ClustersWindow::Remember(Preferences& preferences) const {
  preferences.Set(kColumns, ShownColumns());
}

void ClustersWindow::Recall(const Preferences& preferences) {
  ShowColumns(preferences.Get(kColumns, kUsual));
}

QWidget* ClustersWindow::Content() const {
  return view_;
}

void ClustersWindow::AddWants(const Session&, LiveWants& wants) const {
  // The numbers of spikes come with every cut.
  for (size_t i = 0; i < ShownMeasures().size(); ++i)
    if (!view_->isColumnHidden(static_cast<int>(i) + 1)) wants.Table |= OnlyPart(ShownMeasures()[i].Value->Part);
}

void ClustersWindow::ShowState(const LiveState& state) {
  tetrode_ = TetrodeOf(state.Program);
  following_ = true;
  table_->ShowState(state);
  const int row = table_->RowOf(state.Program.CurrentCluster);
  const QModelIndex chosen = row < 0 ? QModelIndex() : sorted_->mapFromSource(table_->index(row, 0));
  if (!chosen.isValid())
    view_->clearSelection();
  else if (view_->selectionModel()->currentIndex().row() != chosen.row() || !view_->selectionModel()->hasSelection())
    view_->setCurrentIndex(chosen.siblingAtColumn(0));
  following_ = false;
}

QString ClustersWindow::NameOfColumn(int column) {
  if (column == 0) return "cluster";
  if (column == ClusterTable::GradeColumn()) return "grade";
  if (column == ClusterTable::RemarkColumn()) return "remark";
  return QString::fromStdString(ShownMeasures()[static_cast<size_t>(column) - 1].Value->Name);
}

QStringList ClustersWindow::ShownColumns() const {
  QStringList names;
  for (int column = 1; column < table_->columnCount(); ++column)
    if (!view_->isColumnHidden(column)) names << NameOfColumn(column);
  return names;
}

void ClustersWindow::ShowColumns(const QStringList& names) {
  for (int column = 1; column < table_->columnCount(); ++column)
    view_->setColumnHidden(column, !names.contains(NameOfColumn(column)));
  emit Changed();
}

void ClustersWindow::OfferColumns(QPoint at) {
  QMenu menu;
  for (int column = 1; column < table_->columnCount(); ++column) {
    QAction* entry = menu.addAction(table_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
    entry->setCheckable(true);
    entry->setChecked(!view_->isColumnHidden(column));
    entry->setData(NameOfColumn(column));
  }
  menu.addSeparator();
  const QAction* usual = menu.addAction("The usual ones");
  const QAction* picked = menu.exec(at);
  if (!picked) return;
  QStringList names = picked == usual ? kUsual : ShownColumns();
  const QString name = picked->data().toString();
  if (picked != usual && names.removeAll(name) == 0) names << name;
  ShowColumns(names);
}

QString ClustersWindow::AsText(QChar separator, bool quote) const {
  const QHeaderView* header = view_->horizontalHeader();
  QString text;
  for (int row = -1; row < sorted_->rowCount(); ++row) {
    QStringList fields;
    for (int place = 0; place < header->count(); ++place) {
      const int column = header->logicalIndex(place);
      if (header->isSectionHidden(column)) continue;
      QString field = row < 0 ? NameOfColumn(column) : sorted_->index(row, column).data().toString();
      const bool plain = !field.contains(separator) && !field.contains('"') && !field.contains('\n');
      if (quote && !plain) field = '"' + field.replace('"', "\"\"") + '"';
      fields << field;
    }
    text += fields.join(separator) + "\r\n";
  }
  return text;
}

void ClustersWindow::Copy() {
  QApplication::clipboard()->setText(AsText('\t', false));
}

void ClustersWindow::SaveTable() {
  const QString path = dialogs_.SaveFile(this, {"Save table", "CSV table (*.csv)|*.csv|All files (*.*)|*.*",
                                                FileNameWithTetrode(tetrode_, {"clusters"}) + ".csv", "csv"});
  if (path.isEmpty()) return;
  try {
    SaveFile file(PathOf(path));
    file.Write(AsText(',', true).toStdString());
    file.Commit();
  } catch (const std::exception& error) {
    dialogs_.ShowMessage(this, QString::fromStdString(SentenceOf(error)), {});
  }
}

}  // namespace pallomir
