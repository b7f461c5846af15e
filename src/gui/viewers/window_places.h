#pragma once

#include <QRect>
#include <span>
#include <vector>

class QMenuBar;
class QWidget;

namespace pallomir {

// Where windows with results come up, and what is done to all of them.

/// Gives a window of results, not shown yet, its size and a place of its own, and lets the others know it.
void PlaceResult(QWidget* window, QSize wanted);

/// Adds the menu that lays all results out side by side, closes them all, or closes this one.
void AddWindowMenu(QMenuBar* menus, QWidget* window);

/// Lays all results out side by side, beside the controls where there is room.
void TileResults();
void CloseResults();

/// A window on the screen, with its frame. One that `Matters`, the controls or another result, is covered only where
/// there is no other way.
struct Neighbour {
  QRect Frame;
  bool Matters = true;
};

/// Where in `room` a window of `wanted` size goes, or of a smaller one down to `smallest`: where it covers nothing;
/// else nothing that matters; else in steps from the upper right corner on, beside the controls if it can. `controls`
/// is one of the neighbours, or null.
QRect FreePlace(const QRect& room, const QRect& controls, QSize wanted, QSize smallest,
                std::span<const Neighbour> neighbours);

}  // namespace pallomir
