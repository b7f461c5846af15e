#pragma once

#include <QtWidgets>
#include <array>
#include <functional>
#include <vector>

#include "pallomir/session/session.h"

namespace pallomir {

template <class Control>
using EpochControls = std::array<Control*, kEpochs>;

/// The thirty rows of an epoch table under their headings, fifteen at a time. cmdNext, whose tag says which half is
/// shown, switches between the halves.
class EpochRows : public QScrollArea {
 public:
  struct Column {
    QString Heading;
    int Stretch;
    /// Creates the control of row 0..29.
    std::function<QWidget*(int)> Make;
    /// The heading's object name, if any.
    QString Name = {};
  };
  /// The captions of cmdNext while the first and the second half are shown.
  EpochRows(const std::vector<Column>& columns, QString firstCaption, QString secondCaption);

  QPushButton* cmdNext;

 private:
  void Show(bool first);

  QString firstCaption_, secondCaption_;
  std::array<std::vector<QWidget*>, kEpochs> rows_;
};

}  // namespace pallomir
