#include "gui/live/cluster_table.h"

#include <QtGui>
#include <algorithm>

#include "gui/controls/controls.h"
#include "gui/controls/toolkit_values.h"

namespace pallomir {

namespace {

QPixmap Swatch(Colour colour) {
  QPixmap swatch(10, 10);
  swatch.fill(ScreenColour(colour));
  return swatch;
}

}  // namespace

void ClusterTable::ShowState(const LiveState& state) {
  std::vector<Row> rows;
  for (int c = 1; c <= kClusters; ++c)
    if (state.Cut.Clusters[c].Defined)
      rows.push_back({c, state.Program.ReferenceColours[c], state.Cut.Clusters[c], state.Program.Notes[c]});
  const auto sameCluster = [](const Row& a, const Row& b) { return a.Cluster == b.Cluster; };
  about_.InMicrovolts = state.Cut.InMicrovolts;
  about_.WhyNoPositions = state.Cut.WhyNoPositions;
  about_.WhyNoSpikeFile = state.Cut.WhyNoSpikeFile;
  // The rows stay, with selection and place, unless there are other clusters.
  if (std::equal(rows.begin(), rows.end(), rows_.begin(), rows_.end(), sameCluster)) {
    rows_ = std::move(rows);
    if (!rows_.empty()) emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    return;
  }
  beginResetModel();
  rows_ = std::move(rows);
  endResetModel();
}

int ClusterTable::RowOf(int cluster) const {
  for (size_t row = 0; row < rows_.size(); ++row)
    if (rows_[row].Cluster == cluster) return static_cast<int>(row);
  return -1;
}

int ClusterTable::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int ClusterTable::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : RemarkColumn() + 1;
}

QVariant ClusterTable::NumberData(const Row& row, int role) {
  if (role == Qt::DisplayRole || role == Qt::UserRole) return row.Cluster;
  if (role == Qt::DecorationRole) return Swatch(row.Shade);
  return {};
}

QVariant ClusterTable::MeasureData(const Row& row, const ShownMeasure& measure, int role) const {
  switch (role) {
    case Qt::DisplayRole:
      return measure.Text(row.Known);
    case Qt::UserRole: {
      // A cluster without a value comes last in either order of the others.
      const Measured value = measure.Value->Of(row.Known.Measures);
      return value.Known() ? QVariant(value.Value) : QVariant();
    }
    case Qt::ForegroundRole:
      return measure.IsFresh(row.Known) ? QVariant() : QVariant(QGuiApplication::palette().placeholderText());
    case Qt::TextAlignmentRole:
      return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    case Qt::ToolTipRole: {
      const QString remark = measure.Remark(row.Known, about_);
      return remark.isEmpty() ? QVariant() : QVariant(PlainToolTip(remark));
    }
    default:
      return {};
  }
}

QVariant ClusterTable::data(const QModelIndex& index, int role) const {
  const Row& row = rows_[static_cast<size_t>(index.row())];
  const int column = index.column();
  if (column == 0) return NumberData(row, role);
  if (column < GradeColumn()) return MeasureData(row, ShownMeasures()[static_cast<size_t>(column) - 1], role);
  const QString text = FromText(column == GradeColumn() ? row.Note.Rating : row.Note.Remarks);
  if (role == Qt::ToolTipRole) return text.isEmpty() ? QVariant() : QVariant(PlainToolTip(text));
  return role == Qt::DisplayRole || role == Qt::UserRole ? QVariant(text) : QVariant();
}

QVariant ClusterTable::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) return {};
  if (section == 0) return role == Qt::DisplayRole ? "Cluster" : "Number and colour of the cluster";
  if (section == GradeColumn()) return role == Qt::DisplayRole ? "Grade" : "From Cluster Notes";
  if (section == RemarkColumn()) return role == Qt::DisplayRole ? "Remark" : "From Cluster Notes";
  const ShownMeasure& measure = ShownMeasures()[static_cast<size_t>(section) - 1];
  return role == Qt::DisplayRole ? measure.Caption() : PlainToolTip(measure.Meaning(about_.InMicrovolts));
}

}  // namespace pallomir
