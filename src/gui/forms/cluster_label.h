#pragma once

#include <QAbstractButton>
#include <QColor>

#include "pallomir/session/session.h"

namespace pallomir {

/// Behind the label of a cluster that is not chosen.
inline constexpr Colour kUnchosenBack = 0x00000F;

/// A cluster's number in its colour, near-black behind; black on its colour when chosen. The quiet form, an outline,
/// stands for a cluster that has no boundary yet.
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
