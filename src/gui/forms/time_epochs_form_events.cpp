// The events file: listing it, and taking times and whole epochs from it.

#include <QtWidgets>

#include "gui/controls/chosen_path.h"
#include "gui/controls/toolkit_values.h"
#include "gui/forms/time_epochs_form.h"
#include "pallomir/files/error.h"
#include "pallomir/recorded/events_file.h"
#include "pallomir/session/work_pace.h"
#include "pallomir/timesel/event_epochs.h"

namespace pallomir {

void TimeEpochs::cmdLoadEventsFile_Click() {
  const QString path = dialogs_.OpenFile(
      this, {"Select Events File", "Neuralynx Events File (*.Nev)|*.Nev|All files (*.*)|*.*", "Events.Nev", {}});
  if (path.isEmpty()) return;
  Work(txtEventsFile_, [&] {
    QString outcome = "%1 lines from %2. Double-click an event to select its time.";
    try {
      const std::string listing = EventsListing(PathOf(path), chkFilter_->isChecked(), WorkPace(*this));
      txtEventsFile_->clear();
      listed_.clear();
      ShowListing(listing);
    } catch (const Interrupted&) {
      outcome = "Stopped; %1 lines are listed.";
    }
    outcome = outcome.arg(txtEventsFile_->blockCount() - 1);
    hint_->setText(outcome.contains("%2") ? outcome.arg(QFileInfo(path).fileName()) : outcome);
  });
}

void TimeEpochs::ShowListing(std::string_view listing) {
  // Inserting a million lines into the text box takes seconds.
  constexpr size_t kPiece = 65536;
  WorkPace pace(*this);
  for (size_t at = 0; at < listing.size();) {
    const size_t end = std::min(listing.find('\n', at + kPiece), listing.size() - 1) + 1;
    const QString piece = FromText(listing.substr(at, end - at));
    listed_ += listing.substr(at, end - at);
    if (at == 0) {
      txtEventsFile_->setPlainText(piece);  // leaves the cursor at the beginning
    } else {
      QTextCursor cursor(txtEventsFile_->document());
      cursor.movePosition(QTextCursor::End);
      cursor.insertText(piece);
    }
    at = end;
    pace.Reached(static_cast<double>(at) / static_cast<double>(listing.size()));
  }
}

void TimeEpochs::SelectStamp(QTextCursor cursor) {
  const QString line = cursor.block().text();
  const auto digits = std::find_if_not(line.begin(), line.end(), [](QChar c) { return c.isDigit(); }) - line.begin();
  cursor.setPosition(cursor.block().position());
  cursor.movePosition(QTextCursor::Right, QTextCursor::KeepAnchor, static_cast<int>(digits));
  txtEventsFile_->setTextCursor(cursor);
}

void TimeEpochs::cmdFillFromEvents_Click() {
  if (listed_.empty()) throw CommandError(ErrorKind::NotReady, "Load an events file first.");
  EpochTable table = Typed();
  const QString told = FromText(FillFromEvents(table, listed_));
  Show(table);
  hint_->setText(told);
}

void TimeEpochs::Show(const EpochTable& table) {
  // Inserted rather than set, so that a box can undo it.
  const auto put = [](QLineEdit* box, const std::string& text) {
    if (box->text().toStdString() == text) return;
    box->selectAll();
    box->insert(QString::fromStdString(text));
  };
  for (size_t row = 0; row < kEpochs; ++row) {
    put(txtEpochLabel_[row], table[row].Label);
    put(txtStart_[row], table[row].Start);
    put(txtEnd_[row], table[row].End);
  }
}

void TimeEpochs::TakeSelection(QLineEdit* box) {
  // Inserted rather than set, so that the box can undo it.
  box->selectAll();
  box->insert(txtEventsFile_->textCursor().selectedText());
}

}  // namespace pallomir
