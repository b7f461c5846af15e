#include "gui/forms/epoch_rows.h"

#include "gui/controls/controls.h"

namespace pallomir {

EpochRows::EpochRows(const std::vector<Column>& columns, QString firstCaption, QString secondCaption)
    : firstCaption_(std::move(firstCaption)), secondCaption_(std::move(secondCaption)) {
  auto* table = new QWidget;
  auto* grid = new QGridLayout(table);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(6);
  grid->setVerticalSpacing(3);
  for (int column = 0; column < static_cast<int>(columns.size()); ++column) {
    auto* heading = MakeHeading(columns[column].Heading);
    heading->setObjectName(columns[column].Name);
    grid->addWidget(heading, 0, column + 1);
    grid->setColumnStretch(column + 1, columns[column].Stretch);
  }
  for (int row = 0; row < static_cast<int>(kEpochs); ++row) {
    auto* number = MakeLabel(QString::number(row));
    number->setProperty("quiet", true);
    number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    rows_[row].push_back(number);
    for (const Column& column : columns) rows_[row].push_back(column.Make(row));
    for (int column = 0; column < static_cast<int>(rows_[row].size()); ++column)
      grid->addWidget(rows_[row][column], row + 1, column);
  }
  grid->setRowStretch(static_cast<int>(kEpochs) + 1, 1);
  cmdNext = MakeButton("cmdNext", {}, {});
  connect(cmdNext, &QPushButton::clicked, this, [this] { Show(cmdNext->property("Tag") == "Second set"); });
  Show(true);
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setWidgetResizable(true);
  setWidget(table);
  setMinimumWidth(table->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width());
}

void EpochRows::Show(bool first) {
  for (size_t row = 0; row < kEpochs; ++row)
    for (QWidget* control : rows_[row]) control->setVisible((row < kEpochs / 2) == first);
  const QString other = first ? "Display Epochs 15-29" : "Display Epochs 0-14";
  cmdNext->setProperty("Tag", first ? "First set" : "Second set");
  cmdNext->setText(first ? firstCaption_ : secondCaption_);
  cmdNext->setToolTip(other);
  cmdNext->setAccessibleName(other);
}

}  // namespace pallomir
