#include "gui/forms/cl_note_form.h"

#include <QtWidgets>

#include "gui/controls/controls.h"
#include "gui/controls/dialogs.h"
#include "gui/controls/run_command.h"
#include "gui/controls/toolkit_values.h"
#include "gui/forms/cluster_label.h"
#include "pallomir/notes/cluster_notes.h"

namespace pallomir {

namespace {

constexpr std::array<const char*, kRatings.size()> kOptionNames = {"optGood", "optPrettyGood", "optFair", "optMarginal",
                                                                   "optPoor"};

constexpr const char* kSheet = R"(
QFrame[page="true"] { background: #0f0000; border-radius: 5px; }
QFrame[page="true"] QLabel { color: #b9c1ce; }
QRadioButton::indicator { width: 12px; height: 12px; border: 1px solid #8d97a8; border-radius: 7px; background: #20242c; }
QRadioButton::indicator:hover { border-color: #ffffff; }
QRadioButton::indicator:focus { border: 2px solid #ffffff; }
QRadioButton::indicator:checked { background: #82aaff; border-color: #ffffff; }
)";

QString RatingName(int grade) {
  return FromText(kRatings[grade]);
}

}  // namespace

ClNoteForm::ClNoteForm(Session& session, World& world, Dialogs& dialogs, QWidget* parent)
    : QDialog(parent), session_(session), world_(world), dialogs_(dialogs) {
  setAttribute(Qt::WA_DeleteOnClose);
  LayOut();
  ShowColours();
  ShowPage(true);
  ShowCurrentCluster();
}

void ClNoteForm::LayOut() {
  setObjectName("frmClNote");
  setWindowTitle("Cluster Quality & Remarks");
  fraCl1to15_ = MakePage("fraCl1to15", 1);
  fraCl16to30_ = MakePage("fraCl16to30", 16);
  txtRemarkDisplay_ = MakeTextBox("txtRemarkDisplay", "Saved remarks", "Saved remarks of the chosen cluster", 30);
  txtRemarkDisplay_->setReadOnly(true);
  txtClRemarks_ = Named(new QPlainTextEdit, "txtClRemarks", "Remarks",
                        "Type remarks here; Add Remarks attaches them to the chosen cluster");
  txtClRemarks_->setTabChangesFocus(true);
  txtClRemarks_->setFixedHeight(3 * txtClRemarks_->fontMetrics().lineSpacing() + 10);

  const auto button = [this](const char* name, const QString& caption, const QString& toolTip,
                             void (ClNoteForm::*handler)()) {
    auto* made = MakeButton(name, caption, toolTip);
    connect(made, &QPushButton::clicked, this,
            [this, handler] { RunCommand(world_, [this, handler] { (this->*handler)(); }); });
    return made;
  };
  const auto page = [this](const char* name, const QString& caption, bool first) {
    auto* made = MakeButton(name, caption, caption);
    connect(made, &QPushButton::clicked, this, [this, first] { ShowPage(first); });
    return made;
  };
  auto* clearRemarks = MakeButton("cmdClearRemarks", "Clear Remarks", "Clear the remarks box");
  connect(clearRemarks, &QPushButton::clicked, this, [this] { txtClRemarks_->setPlainText(" "); });
  auto* save = button("cmdClNoteExit", "Save ClNote file  and Exit",
                      "Push this button to save the ratings and remarks, then to exit.  Clicking Windows X has same "
                      "effect.",
                      &ClNoteForm::cmdClNoteExit_Click);
  save->setProperty("primary", true);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(14, 12, 14, 12);
  column->setSpacing(8);
  column->addLayout(
      Row({page("cmdCl1to15", "View Clusters 1-15", true), page("cmdCl16to30", "View Clusters 16-30", false), nullptr,
           button("cmdClear", "Clear Current Cluster", "Remove the chosen cluster's grade and remarks",
                  &ClNoteForm::cmdClear_Click)}));
  column->addWidget(fraCl1to15_, 1);
  column->addWidget(fraCl16to30_, 1);
  column->addLayout(Row({MakeLabel("Saved", txtRemarkDisplay_), txtRemarkDisplay_}));
  column->addWidget(MakeLabel("&Remarks", txtClRemarks_));
  column->addWidget(txtClRemarks_);
  column->addLayout(Row({button("cmdAddRemarks", "&Add Remarks", "Push this button to attach remarks to a cluster#",
                                &ClNoteForm::cmdAddRemarks_Click),
                         clearRemarks,
                         button("cmdCopyRemarks", "Copy Saved Remarks to Remarks",
                                "Copy the saved remarks back for editing", &ClNoteForm::cmdCopyRemarks_Click),
                         nullptr}));
  auto* hint = MakeLabel("Remarks are saved only once Add Remarks has attached them. Esc and the close box also save.");
  hint->setProperty("quiet", true);
  column->addWidget(hint);
  column->addLayout(
      Row({nullptr, button("cmdCancel", "Cancel", "Close without saving", &ClNoteForm::cmdCancel_Click), save}));
}

QFrame* ClNoteForm::MakePage(const QString& name, int firstCluster) {
  auto* page = new QFrame;
  page->setObjectName(name);
  page->setProperty("page", true);
  page->setStyleSheet(kSheet);
  auto* grid = new QGridLayout(page);
  grid->setContentsMargins(10, 6, 10, 8);
  grid->setHorizontalSpacing(14);
  grid->setVerticalSpacing(2);
  for (int grade = 0; grade < kGrades; ++grade) {
    auto* heading = new QLabel(RatingName(grade));
    heading->setAlignment(Qt::AlignCenter);
    grid->addWidget(heading, 0, grade + 1);
    grid->setColumnStretch(grade + 1, 1);
  }
  for (int line = 1; line <= 15; ++line) {
    MakeRow(grid, line, firstCluster + line - 1);
    grid->setRowStretch(line, 1);
  }
  return page;
}

void ClNoteForm::MakeRow(QGridLayout* grid, int line, int c) {
  lblChooseCl_[c] = Named(new ClusterLabel(c, false), Indexed("lblChooseCl", c), QString("Cluster %1").arg(c),
                          "Choose this cluster for remarks");
  connect(lblChooseCl_[c], &QAbstractButton::clicked, this, [this, c] { lblChooseCl_Click(c); });
  grid->addWidget(lblChooseCl_[c], line, 0);
  groups_[c] = new QButtonGroup(this);
  for (int grade = 0; grade < kGrades; ++grade) {
    const QString what = QString("Cluster %1: %2").arg(c).arg(RatingName(grade));
    auto* option = Named(new QRadioButton, Indexed(kOptionNames[grade], c), what, what);
    grades_[c][grade] = option;
    groups_[c]->addButton(option);
    grid->addWidget(option, line, grade + 1, Qt::AlignCenter);
    connect(option, &QRadioButton::toggled, this, [this, c, grade](bool on) {
      if (on) Grade_Click(c, grade);
    });
    connect(option, &QRadioButton::clicked, this, [this, c, grade] { Grade_Click(c, grade); });
  }
}

void ClNoteForm::Form_Load() {
  if (!ReadNotes(session_)) return;
  for (const ClusterNote& note : ByCluster<ClusterNote>(session_.Notes)) {
    const auto rating = std::find(kRatings.begin(), kRatings.end(), note.Rating);
    if (note.Number != 0 && rating != kRatings.end()) grades_[note.Number][rating - kRatings.begin()]->setChecked(true);
  }
}

void ClNoteForm::ShowColours() {
  for (int c = 1; c <= kClusters; ++c) {
    const QColor colour = ScreenColour(session_.ReferenceColours[c]), dark = ScreenColour(kUnchosenBack);
    lblChooseCl_[c]->SetColours(c == selected_ ? colour : dark, c == selected_ ? Qt::black : colour);
  }
}

void ClNoteForm::ShowCurrentCluster() {
  for (int c = 1; c <= kClusters; ++c) {
    const bool current = c == session_.CurrentCluster;
    lblChooseCl_[c]->setText(QString(current ? "▸ CL %1" : "CL %1").arg(c));
    lblChooseCl_[c]->setToolTip(current ? "The cluster chosen in the controls" : "Choose this cluster for remarks");
  }
}

void ClNoteForm::lblChooseCl_Click(int c) {
  selected_ = c;
  ShowColours();
  ShowRemarks();
}

void ClNoteForm::ShowRemarks() {
  txtRemarkDisplay_->setText(QString("cluster - %1 : ").arg(selected_) +
                             QString::fromStdString(session_.Notes[selected_].Remarks));
}

void ClNoteForm::Grade_Click(int c, int grade) {
  lblChooseCl_Click(c);
  session_.Notes[c].Number = static_cast<int16_t>(c);
  session_.Notes[c].Rating = kRatings[grade];
}

void ClNoteForm::cmdAddRemarks_Click() {
  const std::string remarks = txtClRemarks_->toPlainText().toStdString();
  CheckRemarks(selected_, remarks);
  session_.Notes[selected_].Remarks = remarks;
  ShowRemarks();
}

void ClNoteForm::cmdCopyRemarks_Click() {
  const QString line = txtRemarkDisplay_->text();
  const auto colon = line.indexOf(':');
  if (colon >= 0) txtClRemarks_->setPlainText(line.mid(colon + 2));
}

void ClNoteForm::cmdClear_Click() {
  if (selected_ != 0) {
    groups_[selected_]->setExclusive(false);
    for (QRadioButton* option : grades_[selected_]) option->setChecked(false);
    groups_[selected_]->setExclusive(true);
  }
  session_.Notes[selected_].Rating.clear();
  session_.Notes[selected_].Remarks.clear();
  txtRemarkDisplay_->clear();
}

void ClNoteForm::ShowPage(bool first) {
  fraCl1to15_->setVisible(first);
  fraCl16to30_->setVisible(!first);
}

bool ClNoteForm::Save() {
  const std::string doubt = DoubtAboutNotesFile(session_);
  if (doubt.empty()) {
    WriteNotes(session_);
    return true;
  }
  // The notes are unchanged since they were last read or written: the file can stay as it is.
  if (NotesAreSaved(session_)) return true;
  const QString question = FromText(doubt) +
                           "\n\nReplace it with the notes of this form? The earlier file is kept under a name with its "
                           "date. Cancel closes the form without saving.";
  if (!dialogs_.Confirm(this, question)) return false;
  WriteNotes(session_, InDoubt::SetAside);
  return true;
}

void ClNoteForm::cmdClNoteExit_Click() {
  if (Save()) hide();
}

void ClNoteForm::cmdCancel_Click() {
  emit Unloaded();
  deleteLater();
  hide();
}

void ClNoteForm::closeEvent(QCloseEvent* event) {
  // The form stays open if the notes cannot be saved.
  RunCommand(world_, [this] { cmdClNoteExit_Click(); });
  event->setAccepted(!isVisible());
  if (event->isAccepted()) emit Unloaded();
}

}  // namespace pallomir
