#pragma once

#include <qcustomplot.h>

#include <QtWidgets>
#include <string>
#include <string_view>
#include <vector>

#include "gui/controls/dialogs.h"
#include "gui/viewers/explanation.h"
#include "gui/viewers/plot_style.h"

namespace pallomir {

/// What a result is of: the title that the command gave, "Cluster 2", and the tetrode.
struct ResultTitle {
  QString Title;
  QString Tetrode;
};

/// A window of its own that shows one result and stays open beside others: the plot, what is under the pointer, what
/// the result was made of, and buttons to keep it. The wheel zooms, a drag moves, a double click shows all again.
class ResultWindow : public QWidget {
  Q_OBJECT

 public:
  /// Shows it where there is room for it.
  void Present();

 protected:
  /// `kind` says what the result is ("Rate map"). The result file is kept as it is now, to be saved later. Throws
  /// CommandError when it cannot be read.
  ResultWindow(QWidget* parent, Dialogs& dialogs, const ResultTitle& title, const QString& kind,
               std::string_view resultFile);

  /// Gives the plot's body the colours and fonts of `style`: those of the screen, or for a while those of print.
  virtual void Restyle(const PlotStyle& style) = 0;

  /// What is at a place of the plot; empty when nothing is.
  virtual QString ReadOut(QPointF at) const = 0;

  /// Sets the words of the window; `figures` are lines above the plot. With an explanation (why there is nothing to
  /// see) the rest of the plot remains empty: see `IsEmpty`.
  void SetWords(const QStringList& figures, const QString& usage, const QString& explanation);
  bool IsEmpty() const { return explanation_ != nullptr; }

  /// Lets an axis move and zoom within `whole`, which is what it shows at first. One that is `standing` keeps its lower
  /// end.
  void Bound(QCPAxis* axis, QCPRange whole, bool standing = false);

  QCustomPlot* Plot() const { return plot_; }
  /// Where the plot's own elements go: below the title and the figures.
  QCPLayoutGrid* Body() const { return body_; }
  /// In front of the buttons.
  void AddControl(QWidget* control);

  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct BoundAxis {
    QCPAxis* Axis;
    QCPRange Whole;
    bool Standing;
  };

  void MakeButtons();
  void Dress(const PlotStyle& style);
  void KeepWithin(const BoundAxis& bound, const QCPRange& range);
  void ShowReadOut(QPointF at);

  void ShowAll();
  void Zoom(double factor);
  void Move(Qt::Orientation orientation, int steps);
  void CopyPicture();
  void cmdSavePicture_Click();
  void cmdSaveData_Click();
  /// Asks for a name, and writes to it what `write` writes there.
  template <class Write>
  void Save(const FileDialogOptions& options, Write write);

  Dialogs& dialogs_;
  QString fileName_;
  std::string data_;
  QString dataEnding_;
  QCustomPlot* plot_;
  QCPTextElement* title_;
  std::vector<QCPTextElement*> figures_;
  Explanation* explanation_ = nullptr;
  QCPLayoutGrid* body_;
  QLabel* readOut_;
  QLabel* usage_;
  QHBoxLayout* controls_;
  std::vector<BoundAxis> bounds_;
};

}  // namespace pallomir
