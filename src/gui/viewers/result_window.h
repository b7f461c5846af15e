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

/// What a result is about: the title given by the command, "Cluster 2", and the tetrode.
struct ResultTitle {
  QString Title;
  QString Tetrode;
};

/// A window that shows one result and stays open: the plot, the value under the pointer, the data used for the result,
/// and buttons to save it. The wheel zooms, dragging moves, a double click shows everything again.
class ResultWindow : public QWidget {
  Q_OBJECT

 public:
  /// Shows the window where there is room for it.
  void Present();

 protected:
  /// `kind` says what the result is ("Rate map"). Reads the result file now, so that it can be saved later. Throws
  /// CommandError if it cannot be read.
  ResultWindow(QWidget* parent, Dialogs& dialogs, const ResultTitle& title, const QString& kind,
               const std::filesystem::path& resultFile);

  /// Applies the colours and fonts of `style` to the plot's body: the screen style or, temporarily, the print style.
  virtual void Restyle(const PlotStyle& style) = 0;

  /// Text for a position in the plot; empty if nothing is there.
  virtual QString ReadOut(QPointF at) const = 0;

  /// Sets the texts of the window; `figures` are lines above the plot. With an explanation (why there is nothing to
  /// see) the rest of the plot stays empty: see `IsEmpty`.
  void SetWords(const QStringList& figures, const QString& usage, const QString& explanation);
  bool IsEmpty() const { return explanation_ != nullptr; }

  /// Limits moving and zooming of an axis to `whole`, its initial range. If `standing`, its lower end is fixed.
  void Bound(QCPAxis* axis, QCPRange whole, bool standing = false);

  QCustomPlot* Plot() const { return plot_; }
  /// Layout for the plot's own elements, below the title and the figures.
  QCPLayoutGrid* Body() const { return body_; }
  /// Adds a control before the buttons.
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
  static void KeepWithin(const BoundAxis& bound, const QCPRange& range);
  void ShowReadOut(QPointF at);

  void ShowAll();
  void Zoom(double factor);
  void Move(Qt::Orientation orientation, int steps);
  void CopyPicture();
  void cmdSavePicture_Click();
  void cmdSaveData_Click();
  /// Asks for a file name and calls `write` with it.
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
