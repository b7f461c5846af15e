#include "gui/forms/load_multiple_epochs_form.h"

#include <QtWidgets>

#include "gui/controls/controls.h"
#include "gui/controls/run_command.h"
#include "pallomir/files/error.h"
#include "pallomir/timesel/epochs.h"

namespace pallomir {

namespace {

constexpr const char* kNote =
    "NOTE: All selected points will be loaded, even points in between epochs, regardless of display setting.  Be "
    "careful about writing cluster files!  This load procedure should be used mostly for initial cluster cutting, not "
    "final cuts.  Use standard load procedure for final cuts.";

}  // namespace

LoadMultipleEpochsForm::LoadMultipleEpochsForm(const Session& session, World& world,
                                               const std::vector<std::string>& items, QWidget* parent)
    : QDialog(parent), world_(world) {
  const EpochTable table = TableOf(items);
  setAttribute(Qt::WA_DeleteOnClose);
  LayOut();
  for (size_t row = 0; row < items.size(); ++row) {
    txtEpochLabel_[row]->setText(QString::fromStdString(table[row].Label));
    txtStart_[row]->setText(QString::fromStdString(table[row].Start));
    txtEnd_[row]->setText(QString::fromStdString(table[row].End));
    txtStartID_[row]->setText(QString::number(session.EpochStartRecord[row]));
    txtEndID_[row]->setText(QString::number(session.EpochEndRecord[row]));
  }
  for (size_t row = 0; row < kEpochs; ++row) {
    connect(chkSelectEpoch_[row], &QCheckBox::toggled, this,
            [this, row] { RunCommand(world_, [this, row] { chkSelectEpoch_Click(static_cast<int>(row)); }); });
    for (const QLineEdit* box : {txtStartID_[row], txtEndID_[row]})
      connect(box, &QLineEdit::editingFinished, this, &LoadMultipleEpochsForm::SelectionChanged);
  }
  connect(chkDisplayInterEpochPoints_, &QCheckBox::toggled, this, &LoadMultipleEpochsForm::SelectionChanged);
}

void LoadMultipleEpochsForm::LayOut() {
  setObjectName("frmLoadMultipleEpochs");
  setWindowTitle("Load Multiple Epochs");
  const auto box = [](EpochControls<QLineEdit>& into, const QString& name, const QString& what, int digits) {
    return [&into, name, what, digits](int row) {
      return into[row] = MakeTextBox(Indexed(name, row), QString("%1 of epoch %2").arg(what).arg(row), what, digits);
    };
  };
  const auto tick = [this](int row) {
    return chkSelectEpoch_[row] = Named(new QCheckBox, Indexed("chkSelectEpoch", row),
                                        QString("Select epoch %1").arg(row), "Load this epoch, and show its points");
  };
  auto* rows = new EpochRows({{"", 0, tick},
                              {"Epoch", 3, box(txtEpochLabel_, "txtEpochLabel", "Name", 12)},
                              {"Start, µs", 2, box(txtStart_, "txtStart", "Start time", 12)},
                              {"End, µs", 2, box(txtEnd_, "txtEnd", "End time", 12)},
                              {"First record", 1, box(txtStartID_, "txtStartID", "First record", 8)},
                              {"Last record", 1, box(txtEndID_, "txtEndID", "Last record", 8)}},
                             "Display Epochs 15-29", "Display Epochs 0-14");
  auto* note = MakeLabel(kNote);
  note->setObjectName("Label1");
  note->setWordWrap(true);
  chkDisplayInterEpochPoints_ =
      MakeCheckBox("chkDisplayInterEpochPoints", "Display Points in between epochs",
                   "If unticked, only points of the ticked epochs are drawn, from the next redraw on");
  auto* load = MakeButton("cmdLoad", "&Load Selected Epochs",
                          "Load all spikes from the first to the last record of the ticked epochs");
  load->setProperty("primary", true);
  connect(load, &QPushButton::clicked, this, &LoadMultipleEpochsForm::Load);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(14, 12, 14, 12);
  column->setSpacing(10);
  column->addWidget(rows, 1);
  column->addWidget(note);
  column->addLayout(Row({rows->cmdNext, nullptr, chkDisplayInterEpochPoints_, load}, 12));
  resize(minimumSizeHint().width() + 60, rows->widget()->sizeHint().height() + 150);
}

void LoadMultipleEpochsForm::chkSelectEpoch_Click(int row) {
  if (chkSelectEpoch_[row]->isChecked()) {
    try {
      CheckSelection(Choices(), static_cast<size_t>(row));
    } catch (const CommandError&) {
      const QSignalBlocker silent(chkSelectEpoch_[row]);
      chkSelectEpoch_[row]->setChecked(false);
      throw;
    }
  }
  emit SelectionChanged();
}

EpochChoices LoadMultipleEpochsForm::Choices() const {
  EpochChoices rows;
  for (size_t row = 0; row < kEpochs; ++row)
    rows[row] = {chkSelectEpoch_[row]->isChecked(), txtStart_[row]->text().toStdString(),
                 txtEnd_[row]->text().toStdString(), txtStartID_[row]->text().toStdString(),
                 txtEndID_[row]->text().toStdString()};
  return rows;
}

std::optional<std::vector<std::pair<float, float>>> LoadMultipleEpochsForm::RecordRanges() const {
  if (chkDisplayInterEpochPoints_->isChecked()) return {};
  std::vector<std::pair<float, float>> ranges;
  for (size_t row = 0; row < kEpochs; ++row) {
    if (!chkSelectEpoch_[row]->isChecked()) continue;
    const auto start = SingleIn(txtStartID_[row]), end = SingleIn(txtEndID_[row]);
    if (start && end) ranges.emplace_back(*start, *end);
  }
  return ranges;
}

}  // namespace pallomir
