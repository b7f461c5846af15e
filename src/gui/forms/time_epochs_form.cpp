#include "gui/forms/time_epochs_form.h"

#include <QtWidgets>

#include "gui/controls/controls.h"
#include "gui/controls/run_command.h"
#include "gui/controls/toolkit_values.h"
#include "pallomir/files/error.h"
#include "pallomir/session/work_pace.h"

namespace pallomir {

namespace {

constexpr const char* kTake =
    "Click, or press F2, to enter the text selected in the events file. Ctrl+Z restores the earlier text.";

QPlainTextEdit* MakeReadOnlyText(const QString& name, const QString& accessibleName, const QString& toolTip) {
  auto* box = Named(new QPlainTextEdit, name, accessibleName, toolTip);
  box->setReadOnly(true);
  box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  box->setLineWrapMode(QPlainTextEdit::NoWrap);
  box->setUndoRedoEnabled(false);
  box->setTabChangesFocus(true);
  box->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  return box;
}

}  // namespace

TimeEpochs::TimeEpochs(Session& session, Dialogs& dialogs, const std::vector<std::string>& items, QWidget* parent)
    : QDialog(parent), session_(session), dialogs_(dialogs), before_(items) {
  const EpochTable table = TableOf(items);
  setAttribute(Qt::WA_DeleteOnClose);
  LayOut();
  for (size_t row = 0; row < kEpochs; ++row) {
    txtEpochLabel_[row]->setText(QString::fromStdString(table[row].Label));
    txtStart_[row]->setText(QString::fromStdString(table[row].Start));
    txtEnd_[row]->setText(QString::fromStdString(table[row].End));
  }
  ShowRecords();
  Connect();
  ShowHint();
}

void TimeEpochs::LayOut() {
  setObjectName("TimeEpochs");
  setWindowTitle("Time Epochs");
  const auto box = [](EpochControls<QLineEdit>& into, const QString& name, const QString& what, const QString& toolTip,
                      int digits) {
    return [&into, name, what, toolTip, digits](int row) {
      return into[row] = MakeTextBox(Indexed(name, row), QString("%1 of epoch %2").arg(what).arg(row), toolTip, digits);
    };
  };
  const auto records = [this](int row) {
    lblRecords_[row] = Named(MakeLabel({}), Indexed("lblRecords", row), QString("Records of epoch %1").arg(row),
                             "First and last spike record found by the last search for this row");
    lblRecords_[row]->setProperty("quiet", true);
    lblRecords_[row]->setMinimumWidth(lblRecords_[row]->fontMetrics().horizontalAdvance("0000000 - 0000000"));
    return lblRecords_[row];
  };
  rows_ = new EpochRows(
      {{"Epoch", 3, box(txtEpochLabel_, "txtEpochLabel", "Label", "The epoch's name", 12)},
       {"Start, µs", 2, box(txtStart_, "txtStart", "Start", QString("First timestamp of the epoch. ") + kTake, 12),
        "lblStart"},
       {"End, µs", 2, box(txtEnd_, "txtEnd", "End", QString("Last timestamp of the epoch. ") + kTake, 12), "lblEnd"},
       {"Records", 0, records}},
      ">", "<");

  txtEventsFile_ = MakeReadOnlyText("txtEventsFile", "Events",
                                    "Double-click a line, or press Enter on it, to select its timestamp; then click "
                                    "the start or end box to enter it.");
  txtEventsFile_->setPlaceholderText("The events of the recording are listed here.");
  txtEventsFile_->setMinimumWidth(260);
  lblEventsFile_ = MakeLabel("Events File", txtEventsFile_);
  lblEventsFile_->setObjectName("lblEventsFile");
  chkFilter_ = MakeCheckBox("chkFilter", "Do not display TTL and AD Errors", "Takes effect when a file is loaded");
  auto* load = MakeButton("cmdLoadEventsFile", "&Load Events File", "List the events of the recording");
  auto* fill = MakeButton("cmdFillFromEvents", "&Fill From Events",
                          R"(Fill the empty rows with the parts that the events name: "maze1 start" and "maze1 end")");
  auto* find = MakeButton("cmdFindEventNumbers", "&Get Event IDs",
                          "Find the closest event numbers that are associated with the epoch timestamps listed here");
  auto* clear = MakeButton("cmdClear", "Clear Epochs", "Clear all boxes of the table");
  auto* cancel = MakeButton("cmdCancel", "Cancel", "Leave the list of epochs as it was");
  auto* done = MakeButton("cmdSave", "&Done", "Use this table as the list of epochs");
  done->setProperty("primary", true);

  auto* left = new QVBoxLayout;
  left->addWidget(rows_, 1);
  left->addLayout(Row({find, clear, nullptr, rows_->cmdNext}));
  auto* right = new QVBoxLayout;
  right->addLayout(Row({lblEventsFile_, nullptr, load}));
  right->addWidget(txtEventsFile_, 1);
  right->addLayout(Row({chkFilter_, nullptr, fill}));
  auto* top = new QHBoxLayout;
  top->setContentsMargins(0, 0, 0, 0);
  top->setSpacing(16);
  top->addLayout(left, 5);
  top->addLayout(right, 4);
  commands_ = new QWidget;
  commands_->setLayout(top);

  txtEventIDProgress_ = MakeReadOnlyText("txtEventIDProgress", "Search report", "What the search found, row by row");
  txtEventIDProgress_->setFixedHeight(8 * txtEventIDProgress_->fontMetrics().lineSpacing());
  progress_ = Named(new QProgressBar, "progress", "Search progress", "How much of the recording has been read");
  progress_->setRange(0, 32767);
  progress_->setTextVisible(false);
  auto* stop = MakeButton("cmdStopSearch", "Stop", "Stop the search and keep what was found (Esc)");
  connect(stop, &QPushButton::clicked, this, &TimeEpochs::StopWork);
  report_ = new QWidget;
  auto* reportColumn = new QVBoxLayout(report_);
  reportColumn->setContentsMargins(0, 0, 0, 0);
  reportColumn->addWidget(txtEventIDProgress_);
  reportColumn->addLayout(Row({progress_, stop}));
  report_->hide();

  hint_ = MakeLabel({});
  hint_->setObjectName("hint");
  hint_->setProperty("quiet", true);
  hint_->setWordWrap(true);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(14, 12, 14, 12);
  column->setSpacing(10);
  column->addWidget(commands_, 1);
  column->addWidget(report_);
  auto* last = Row({hint_, cancel, done});
  last->setStretch(0, 1);
  column->addLayout(last);
  resize(minimumSizeHint().width() + 80, rows_->widget()->sizeHint().height() + 120);
}

void TimeEpochs::Connect() {
  const auto onClick = [this](const char* name, void (TimeEpochs::*handler)()) {
    connect(findChild<QPushButton*>(name), &QPushButton::clicked, this, [this, handler] {
      if (!busy_) RunCommand(*this, [this, handler] { (this->*handler)(); });
    });
  };
  onClick("cmdLoadEventsFile", &TimeEpochs::cmdLoadEventsFile_Click);
  onClick("cmdFillFromEvents", &TimeEpochs::cmdFillFromEvents_Click);
  onClick("cmdFindEventNumbers", &TimeEpochs::cmdFindEventNumbers_Click);
  onClick("cmdSave", &TimeEpochs::cmdSave_Click);
  onClick("cmdClear", &TimeEpochs::cmdClear_Click);
  onClick("cmdCancel", &TimeEpochs::cmdCancel_Click);
  for (const auto* boxes : {&txtStart_, &txtEnd_})
    for (QLineEdit* box : *boxes) box->installEventFilter(this);
  for (QLineEdit* box : txtEpochLabel_) connect(box, &QLineEdit::textChanged, this, &TimeEpochs::ShowHint);
  txtEventsFile_->installEventFilter(this);
  txtEventsFile_->viewport()->installEventFilter(this);
  connect(txtEventsFile_, &QPlainTextEdit::selectionChanged, this, &TimeEpochs::ShowHint);
}

bool TimeEpochs::eventFilter(QObject* watched, QEvent* event) {
  const auto* key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event) : nullptr;
  const bool enter = key && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter);
  if (watched == txtEventsFile_ && enter) {
    SelectStamp(txtEventsFile_->textCursor());
    return true;
  }
  if (watched == txtEventsFile_->viewport() && event->type() == QEvent::MouseButtonDblClick) {
    SelectStamp(txtEventsFile_->cursorForPosition(static_cast<QMouseEvent*>(event)->position().toPoint()));
    return true;
  }
  if (auto* box = qobject_cast<QLineEdit*>(watched)) {
    const bool click =
        event->type() == QEvent::MouseButtonRelease && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
    if (click || (key && key->key() == Qt::Key_F2)) TakeSelection(box);
  }
  return QDialog::eventFilter(watched, event);
}

void TimeEpochs::Work(QWidget* next, const std::function<void()>& work) {
  const QScopeGuard done = qScopeGuard([this, next] {
    busy_ = stop_ = false;
    commands_->setEnabled(true);
    next->setFocus();
    emit Idle();
  });
  busy_ = true;
  commands_->setEnabled(false);
  work();
}

void TimeEpochs::cmdFindEventNumbers_Click() {
  Work(findChild<QPushButton*>("cmdFindEventNumbers"), [this] {
    const QScopeGuard done = qScopeGuard([this] { ShowRecords(); });
    txtEventIDProgress_->clear();
    ShowReport(true);
    try {
      FindEventIDs(session_, *this, Typed());
      txtEventIDProgress_->moveCursor(QTextCursor::Start);
      ShowMessage("Done Finding Event IDs", {});
      ShowReport(false);
    } catch (const Interrupted&) {
      hint_->setText("Stopped; the rows reported above were found.");
    }
  });
}

void TimeEpochs::ShowReport(bool shown) {
  if (report_->isHidden() != shown) return;
  const int change = report_->sizeHint().height() + layout()->spacing();
  report_->setVisible(shown);
  const QRect room = screen()->availableGeometry();
  resize(width(), std::min(height() + (shown ? change : -change), room.height()));
  if (frameGeometry().bottom() > room.bottom())
    move(x(), std::max(room.top(), y() - (frameGeometry().bottom() - room.bottom())));
}

void TimeEpochs::cmdSave_Click() {
  QStringList items;
  for (const std::string& item : ItemsOf(Typed())) items << QString::fromStdString(item);
  emit Done(items);
  accept();
}

void TimeEpochs::cmdClear_Click() {
  for (const auto* boxes : {&txtEpochLabel_, &txtStart_, &txtEnd_})
    for (QLineEdit* box : *boxes) {
      box->selectAll();
      box->del();
    }
}

void TimeEpochs::cmdCancel_Click() {
  QDialog::reject();
}

bool TimeEpochs::StopWork() {
  stop_ = busy_;
  return busy_;
}

void TimeEpochs::reject() {
  if (StopWork()) return;
  if (ItemsOf(Typed()) == before_ || dialogs_.Confirm(this, "Close without keeping your changes to the epochs?"))
    QDialog::reject();
}

EpochTable TimeEpochs::Typed() const {
  EpochTable table;
  for (size_t row = 0; row < kEpochs; ++row)
    table[row] = {txtEpochLabel_[row]->text().toStdString(), txtStart_[row]->text().toStdString(),
                  txtEnd_[row]->text().toStdString()};
  return table;
}

void TimeEpochs::ShowRecords() {
  for (size_t row = 0; row < kEpochs; ++row) {
    const int32_t start = session_.EpochStartRecord[row], end = session_.EpochEndRecord[row];
    lblRecords_[row]->setText(start == 0 && end == 0 ? QString() : QString("%1 - %2").arg(start).arg(end));
  }
}

void TimeEpochs::ShowHint() {
  for (const QLineEdit* label : txtEpochLabel_)
    if (label->text().contains(':') || label->text().contains('"')) {
      hint_->setText("A label can contain neither a colon nor a double quote: " + label->text());
      return;
    }
  const QString selected = txtEventsFile_->textCursor().selectedText();
  if (!selected.isEmpty())
    hint_->setText("Click a start or end box to enter " + selected.left(30) + ".");
  else
    hint_->setText(txtEventsFile_->document()->isEmpty()
                       ? "Load an events file, or type the times."
                       : "Double-click an event to select its time, then click a start or end box.");
}

void TimeEpochs::ShowMessage(std::string_view text, std::string_view title) {
  dialogs_.ShowMessage(this, FromText(text), FromText(title));
}

void TimeEpochs::AppendMessage(std::string_view line) {
  txtEventIDProgress_->appendPlainText(FromText(line));
}

void TimeEpochs::ShowProgress(double share) {
  progress_->setValue(BarValue(share));
  if (report_->isHidden())
    hint_->setText(QString("Listing the events: %1 %. Esc stops it.").arg(static_cast<int>(100 * share)));
}

void TimeEpochs::HideProgress() {
  progress_->reset();
}

bool TimeEpochs::PumpEvents() {
  QCoreApplication::processEvents();
  return !stop_ && isVisible();
}

}  // namespace pallomir
