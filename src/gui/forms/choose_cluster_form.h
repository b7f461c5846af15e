#pragma once

#include <QDialog>
#include <array>

#include "pallomir/session/session.h"

class QCheckBox;

namespace pallomir {

/// Selects the clusters to read from a boundaries file. Shown and hidden, never reset.
class ChooseClusterForm : public QDialog {
  Q_OBJECT

 public:
  explicit ChooseClusterForm(QWidget* parent);

  /// The ticked clusters.
  ByCluster<bool> Chosen() const;

 signals:
  void Go();

 private:
  ByCluster<QCheckBox*> chkCluster_{};
};

}  // namespace pallomir
