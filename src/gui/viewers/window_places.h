#pragma once

#include <QRect>
#include <span>
#include <vector>

class QMenuBar;
class QWidget;

namespace pallomir {

// Placing result windows, and commands for all of them.

/// Sets the size and position of a result window that is not shown yet, and registers it with the others.
void PlaceResult(QWidget* window, QSize wanted);

/// Adds the menu that tiles all results, closes them all, or closes this one.
void AddWindowMenu(QMenuBar* menus, QWidget* window);

/// Tiles all results, beside the controls if there is room.
void TileResults();
void CloseResults();

/// A window on the screen, with its frame. Windows that `Matters`, the controls and other results, are covered only as
/// a last resort.
struct Neighbour {
  QRect Frame;
  bool Matters = true;
};

/// The position in `room` of a window of the `wanted` size, or smaller down to `smallest`: where it covers nothing;
/// otherwise nothing that matters; otherwise cascaded from the upper right corner, beside the controls if possible.
/// `controls` is one of the neighbours, or null.
QRect FreePlace(const QRect& room, const QRect& controls, QSize wanted, QSize smallest,
                std::span<const Neighbour> neighbours);

}  // namespace pallomir
