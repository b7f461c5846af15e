#pragma once

#include <QDialog>

#include "pallomir/session/session.h"
#include "pallomir/session/world.h"

class QButtonGroup;
class QFrame;
class QGridLayout;
class QLineEdit;
class QPlainTextEdit;
class QRadioButton;

namespace pallomir {

class ClusterLabel;
class Dialogs;

/// "Cluster Quality & Remarks": a grade and remarks for every cluster, stored in the file ClNotes.
class ClNoteForm : public QDialog {
  Q_OBJECT

 public:
  ClNoteForm(Session& session, World& world, Dialogs& dialogs, QWidget* parent);

  /// Reads the notes and shows their grades. Throws CommandError if the file is malformed; the form can still be used.
  void Form_Load();

  /// Highlights the current cluster of the controls.
  void ShowCurrentCluster();

  /// Paints the labels in the clusters' colours, the selected one inverted.
  void ShowColours();

 signals:
  /// The form was unloaded: the next time it is shown it reads the file again, if there is one.
  void Unloaded();

 protected:
  void closeEvent(QCloseEvent* event) override;
  /// Esc does the same as the close box.
  void reject() override { close(); }

 private:
  static constexpr int kGrades = 5;

  void LayOut();
  QFrame* MakePage(const QString& name, int firstCluster);
  void MakeRow(QGridLayout* grid, int line, int c);
  void lblChooseCl_Click(int c);
  void Grade_Click(int c, int grade);
  void cmdAddRemarks_Click();
  void cmdCopyRemarks_Click();
  void cmdClear_Click();
  void cmdClNoteExit_Click();
  /// False if the file must not be replaced without asking and the user cancels.
  bool Save();
  void cmdCancel_Click();
  void ShowPage(bool first);
  void ShowRemarks();

  Session& session_;
  World& world_;
  Dialogs& dialogs_;
  /// The cluster whose label was last clicked; 0 if none.
  int selected_ = 0;
  ByCluster<ClusterLabel*> lblChooseCl_{};
  ByCluster<std::array<QRadioButton*, kGrades>> grades_{};
  ByCluster<QButtonGroup*> groups_{};
  QFrame* fraCl1to15_;
  QFrame* fraCl16to30_;
  QPlainTextEdit* txtClRemarks_;
  QLineEdit* txtRemarkDisplay_;
};

}  // namespace pallomir
