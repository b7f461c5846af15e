#pragma once

#include <QDialog>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "gui/forms/epoch_rows.h"
#include "pallomir/session/world.h"
#include "pallomir/timesel/epoch_selection.h"

class QCheckBox;
class QLabel;
class QLineEdit;

namespace pallomir {

/// "Load Multiple Epochs": loads the range that covers several epochs, and displays only these.
class LoadMultipleEpochsForm : public QDialog {
  Q_OBJECT

 public:
  /// Throws CommandError for more than thirty items.
  LoadMultipleEpochsForm(const Session& session, World& world, const std::vector<std::string>& items, QWidget* parent);

  EpochChoices Choices() const;

  /// The record ranges that a redraw shows: those of the ticked rows, or empty for no restriction while points in
  /// between are displayed.
  std::optional<std::vector<std::pair<float, float>>> RecordRanges() const;

 signals:
  void Load();
  /// A tick or a record number changed what the next redraw shows.
  void SelectionChanged();

 private:
  void LayOut();
  void chkSelectEpoch_Click(int row);

  World& world_;
  EpochControls<QCheckBox> chkSelectEpoch_;
  EpochControls<QLineEdit> txtEpochLabel_, txtStart_, txtEnd_, txtStartID_, txtEndID_;
  QCheckBox* chkDisplayInterEpochPoints_;
};

}  // namespace pallomir
