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

/// "Waveforms": the stored waveforms of the loaded spikes in the ticked clusters, one at a time or overlaid.
class Waveforms : public QDialog {
  Q_OBJECT

 public:
  Waveforms(const Session& session, World& world, Dialogs& dialogs, QWidget* parent);

  /// The clusters have other colours.
  void ShowColours();

 protected:
  /// Esc stops a running drawing; otherwise it closes the window.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void LayOut();
  QWidget* MakeTicks();
  void PaintTicks();
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
  /// Adds the spike to which `step` leads to the view, if any.
  template <class Step>
  bool StepWith(Step step);
  template <class Step>
  void StepOnce(Step step, const QString& none);
  /// Draws for a short time: the spikes waiting, then those that Show All steps to. The rest is left to the next timer
  /// event.
  void DrawOn(WaveformFile& file);
  bool DrawNext(WaveformFile& file);
  void StopDrawing();
  /// Redraws the spikes in view: for a surface of another size, or another part of the drawing.
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
  /// Show All is running.
  bool running_ = false;
  /// Drawing takes more than one timer event, and the status line shows its progress.
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
