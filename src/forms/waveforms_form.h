#pragma once

#include <QDialog>
#include <QTimer>
#include <optional>
#include <vector>

#include "controls/dialogs.h"
#include "session/session.h"
#include "session/world.h"
#include "waveforms/spike_stepping.h"
#include "waveforms/waveform_file.h"
#include "waveforms/waveform_picture.h"

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

  /// Steps with `step` and draws the spike that it comes to, if any.
  template <class Step>
  bool StepWith(Step step);
  void Draw(const ShownSpike& spike);
  /// Draws a record as high as the user wants; `record` is changed on the way.
  void DrawRecord(WaveformRecord& record, int cluster);
  /// A turn of Show All: one spike, or with Overlay as many as a short while takes.
  void ShowSome();
  void SetArea(const View& view);
  /// The spikes on view are drawn again: on a surface of another size, or another part of the drawing.
  void DrawAgain();
  void ShowPicture();
  ClusterTicks Ticked() const;
  int32_t Counter() const;
  void SetCounter(int32_t counter);

  const Session& session_;
  World& world_;
  Dialogs& dialogs_;
  std::optional<WaveformFile> file_;
  std::vector<ShownSpike> onView_;
  std::optional<WaveformPicture> picture_;
  std::optional<Vertex> zoomAnchor_;
  QTimer showAll_;
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
