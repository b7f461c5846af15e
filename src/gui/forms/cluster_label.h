#pragma once

#include <QAbstractButton>
#include <QColor>

#include "pallomir/session/session.h"

namespace pallomir {

/// Background of the label of a cluster that is not chosen.
inline constexpr Colour kUnchosenBack = 0x00000F;

/// A cluster's number in its colour on near-black, or black on its colour if chosen. The quiet form, an outline, is for
/// a cluster without boundaries.
class ClusterLabel : public QAbstractButton {
  Q_OBJECT

 public:
  ClusterLabel(int cluster, bool quiet, QWidget* parent = nullptr);

  void SetColours(const QColor& back, const QColor& text);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool quiet_;
  QColor back_;
  QColor text_;
};

}  // namespace pallomir
