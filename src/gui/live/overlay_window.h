#pragma once

#include <QImage>
#include <array>
#include <memory>

#include "gui/live/live_window.h"

class QLabel;

namespace pallomir {

/// The waveforms of a cluster on each wire over each other, as density, with their mean.
class WaveformOverlay : public QWidget {
  Q_OBJECT

 public:
  WaveformOverlay();

  void ShowState(const LiveState& state);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Draw();
  QRect PlaceOf(int wire) const;
  QImage DensityOfWire(int wire, QSize size) const;
  void PaintMean(QPainter& painter, int wire) const;

  std::shared_ptr<const CellPlots::Overlaid> waveforms_;
  AverageWaveform average_;
  QColor colour_;
  QString why_, unit_;
  double low_ = 0, high_ = 1;  ///< counts
  std::array<QImage, kWires> pictures_;
};

/// "Waveforms": those of the chosen cluster.
class OverlayWindow : public LiveWindow {
  Q_OBJECT

 public:
  explicit OverlayWindow(Dialogs& dialogs);

  void AddWants(const Session& session, LiveWants& wants) const override;
  void ShowState(const LiveState& state) override;

 private:
  QLabel* heading_;
  WaveformOverlay* overlay_;
};

}  // namespace pallomir
