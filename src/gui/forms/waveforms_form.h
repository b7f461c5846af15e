#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <QTimer>
#include <optional>

#include "gui/controls/dialogs.h"
#include "pallomir/session/session.h"
#include "pallomir/session/world.h"
#include "pallomir/waveforms/spikes_on_view.h"
#include "pallomir/waveforms/waveform_view.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace pallomir {

class PlotSurface;

/// "Waveforms": the stored waveforms of the loaded spikes of the ticked clusters, one at a time or one over another.
class Waveforms : public QDialog {
  Q_OBJECT

 public:
  Waveforms(const Session& session, World& world, Dialogs& dialogs, QWidget* parent);

 protected:
  /// Esc stops the drawing that is under way; else it closes the window.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void LayOut();
  QWidget* MakeTicks();
  void ConnectKeys();
  void OnClick(QPushButton* button, void (Waveforms::*handler)());

  void cmdForward_Click();
  void cmdBack_Click();
  void cmdShowAll_Click();
  void cmdStop_Click();
  void cmdResetToStart_Click();
  void cmdZoomOut_Click();
  void cmdClear_Click();
  void cmdSavePicture_Click();

  void RequirePoints() const;
  /// Brings the spike that `step` comes to on view, if there is one.
  template <class Step>
  bool StepWith(Step step);
  template <class Step>
  void StepOnce(Step step, const QString& none);
  /// Draws for a short while: what is waiting, then what Show All comes to. What is left is for the timer's next turn.
  void DrawOn(WaveformFile& file);
  bool DrawNext(WaveformFile& file);
  void StopDrawing();
  /// The spikes on view are drawn again: on a surface of another size, or another part of the drawing.
  void DrawAgain(const View& area);
  void ShowPicture();
  QString OnView() const;
  ClusterTicks Ticked() const;
  int32_t Counter() const;
  void SetCounter(int32_t counter);

  const Session& session_;
  World& world_;
  Dialogs& dialogs_;
  SpikesOnView onView_{WholeWaveformView(1, 1)};
  std::optional<Vertex> zoomAnchor_;
  QTimer turn_;
  /// Show All is on.
  bool running_ = false;
  /// Drawing has taken more than one turn, and the status line tells how far it is.
  bool inTurns_ = false;
  QElapsedTimer sinceShown_;
  QTimer resized_;
  PlotSurface* surface_;
  std::array<QCheckBox*, kTicks> chkCluster_{};
  QPushButton* cmdForward_;
  QPushButton* cmdBack_;
  QPushButton* cmdShowAll_;
  QPushButton* cmdStop_;
  QCheckBox* chkOverlay_;
  QCheckBox* chkDigitalCheetah_;
  QComboBox* cboHeight_;
  QLineEdit* txtTimestamp_;
  QLabel* status_;
};

}  // namespace pallomir
