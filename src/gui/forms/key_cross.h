#pragma once

#include <QObject>
#include <QPointF>
#include <optional>

#include "gui/forms/plot_surface.h"

namespace pallomir {

/// A cross on a surface, in place of the pointer, that keys move.
class KeyCross : public QObject {
  Q_OBJECT

 public:
  KeyCross(PlotSurface& surface, QObject* parent);

  bool Shown() const { return at_.has_value(); }
  /// Shows it at the pointer if that is over the surface, otherwise in the middle.
  void Show();
  void Hide();

  /// Moves it by an arrow key: 8 pixels, with Shift 1, with Ctrl 40; it stays on the surface. False for another key, or
  /// if it is not shown.
  bool Step(int key, Qt::KeyboardModifiers modifiers);

  /// The value at the shown cross.
  Vertex At() const { return surface_.ValueAt(*at_); }

 private:
  void Place(QPointF at);

  PlotSurface& surface_;
  /// In logical pixels.
  std::optional<QPointF> at_;
};

}  // namespace pallomir
