#include "gui/viewers/window_places.h"

#include <QtWidgets>
#include <algorithm>

namespace pallomir {

namespace {

constexpr char kResult[] = "result";
constexpr int kSide = 6, kTitle = 30;  // largest window frame and title bar, in pixels
constexpr int kCascade = 28;
constexpr double kShrunk[] = {1, 0.8, 0.65};

const QMargins kFrame(kSide, kTitle, kSide, kSide);

bool IsResult(const QWidget* window) {
  return window->property(kResult).toBool();
}

std::vector<QWidget*> Results() {
  std::vector<QWidget*> results;
  for (QWidget* window : QApplication::topLevelWidgets())
    if (IsResult(window) && window->isVisible()) results.push_back(window);
  std::sort(results.begin(), results.end(),
            [](const QWidget* a, const QWidget* b) { return a->windowTitle() < b->windowTitle(); });
  return results;
}

QRect RoomOf(const QWidget* window) {
  return (window->parentWidget() ? window->parentWidget() : window)->screen()->availableGeometry();
}

/// The frame of the window to which the results belong; null if it is not visible.
QRect ControlsOf(const QWidget* window) {
  const QWidget* parent = window->parentWidget();
  return parent && parent->isVisible() ? parent->window()->frameGeometry() : QRect();
}

std::vector<Neighbour> NeighboursOf(const QWidget* window) {
  std::vector<Neighbour> neighbours;
  for (const QWidget* other : QApplication::topLevelWidgets()) {
    const bool isWindow = other->windowType() == Qt::Window || other->windowType() == Qt::Dialog;
    if (!isWindow || !other->isVisible() || other->isMinimized() || other == window) continue;
    neighbours.push_back({other->frameGeometry(), IsResult(other) || other->frameGeometry() == ControlsOf(window)});
  }
  return neighbours;
}

/// The largest part of `room` outside `taken`.
QRect RoomBeside(const QRect& room, const QRect& taken) {
  if (taken.isNull()) return room;
  const QRect parts[] = {{QPoint(taken.right() + 1, room.top()), room.bottomRight()},
                         {room.topLeft(), QPoint(taken.left() - 1, room.bottom())},
                         {QPoint(room.left(), taken.bottom() + 1), room.bottomRight()},
                         {room.topLeft(), QPoint(room.right(), taken.top() - 1)}};
  const auto area = [&](const QRect& part) {
    const QRect within = part & room;
    return within.isValid() ? qint64{within.width()} * within.height() : 0;
  };
  return *std::max_element(std::begin(parts), std::end(parts), [&](const QRect& a, const QRect& b) {
    return area(a) < area(b);
  }) & room;
}

bool Fits(QSize size, const QRect& room) {
  return size.width() <= room.width() && size.height() <= room.height();
}

/// The uppermost, then rightmost position that covers none of `obstacles`; invalid if there is none.
QRect PlaceBetween(const QRect& room, QSize size, const std::vector<QRect>& obstacles) {
  if (!Fits(size, room)) return {};
  QList<int> lefts = {room.right() + 1 - size.width(), room.left()};
  QList<int> tops = {room.top(), room.bottom() + 1 - size.height()};
  for (const QRect& obstacle : obstacles) {
    lefts << obstacle.right() + 1 << obstacle.left() - size.width();
    tops << obstacle.bottom() + 1 << obstacle.top() - size.height();
  }
  std::sort(lefts.rbegin(), lefts.rend());
  std::sort(tops.begin(), tops.end());
  for (const int top : tops)
    for (const int left : lefts) {
      const QRect frame({left, top}, size);
      if (room.contains(frame) &&
          std::none_of(obstacles.begin(), obstacles.end(), [&](const QRect& other) { return other.intersects(frame); }))
        return frame;
    }
  return {};
}

/// Cascaded down and to the left from the upper right corner, over other windows.
QRect Cascaded(const QRect& room, const QRect& controls, QSize size, std::span<const Neighbour> neighbours) {
  const QRect beside = RoomBeside(room, controls);
  const QRect area = Fits(size, beside) ? beside : room;
  const int across = std::max(area.width() - size.width(), 0), down = std::max(area.height() - size.height(), 0);
  QRect frame;
  for (int step = 0; step < 64; ++step) {
    frame = QRect(
        {area.right() + 1 - size.width() - step * kCascade % (across + 1), area.top() + step * kCascade % (down + 1)},
        size);
    const auto isThere = [&](const Neighbour& other) {
      return other.Matters && (other.Frame.topRight() - frame.topRight()).manhattanLength() < kCascade / 2;
    };
    if (std::none_of(neighbours.begin(), neighbours.end(), isThere)) break;
  }
  return frame;
}

/// `frame` is the window including its frame.
void SetFrame(QWidget* window, const QRect& frame) {
  window->resize(frame.marginsRemoved(kFrame).size());
  window->move(frame.topLeft());
}

}  // namespace

QRect FreePlace(const QRect& room, const QRect& controls, QSize wanted, QSize smallest,
                std::span<const Neighbour> neighbours) {
  wanted = wanted.boundedTo(room.size());
  for (const bool all : {true, false}) {
    std::vector<QRect> obstacles;
    for (const Neighbour& neighbour : neighbours)
      if (all || neighbour.Matters) obstacles.push_back(neighbour.Frame);
    for (const double shrunk : kShrunk) {
      const QRect frame = PlaceBetween(room, (QSizeF(wanted) * shrunk).toSize().expandedTo(smallest), obstacles);
      if (frame.isValid()) return frame;
    }
  }
  return Cascaded(room, controls, wanted.expandedTo(smallest).boundedTo(room.size()), neighbours);
}

void PlaceResult(QWidget* window, QSize wanted) {
  window->setProperty(kResult, true);
  const QSize smallest = window->minimumSizeHint().boundedTo(wanted);
  SetFrame(window, FreePlace(RoomOf(window), ControlsOf(window), wanted.grownBy(kFrame), smallest.grownBy(kFrame),
                             NeighboursOf(window)));
}

void AddWindowMenu(QMenuBar* menus, QWidget* window) {
  QMenu* menu = menus->addMenu("&Window");
  menu->setObjectName("mnuWindow");
  const auto entry = [&](const char* name, const char* caption, const char* key, auto act) {
    QAction* action = menu->addAction(caption, QKeySequence(key), window, act);
    action->setObjectName(name);
  };
  entry("mnuTile", "&Tile results", "Ctrl+T", [] { TileResults(); });
  entry("mnuCloseAll", "Close &all results", "Ctrl+Shift+W", [] { CloseResults(); });
  entry("mnuClose", "&Close", "Ctrl+W", [window] { window->close(); });
}

void TileResults() {
  const std::vector<QWidget*> results = Results();
  if (results.empty()) return;
  const int count = static_cast<int>(results.size());
  QSize smallest;
  for (const QWidget* window : results) smallest = smallest.expandedTo(window->minimumSizeHint().grownBy(kFrame));
  const QRect room = RoomOf(results.front());
  QRect area = RoomBeside(room, ControlsOf(results.front()));
  // The number of columns that makes the smaller side of a window largest.
  const auto cells = [&](int columns) {
    return QSize(area.width() / columns, area.height() / ((count + columns - 1) / columns));
  };
  const auto best = [&] {
    int columns = 1;
    for (int more = 2; more <= count; ++more)
      if (std::min(cells(more).width(), cells(more).height()) >
          std::min(cells(columns).width(), cells(columns).height()))
        columns = more;
    return columns;
  };
  int columns = best();
  if (!Fits(smallest, QRect({}, cells(columns)))) {
    area = room;
    columns = best();
  }
  const QSize cell = cells(columns);
  for (int i = 0; i < count; ++i) {
    const QPoint at(area.left() + i % columns * cell.width(), area.top() + i / columns * cell.height());
    QWidget* window = results[i];
    window->showNormal();
    SetFrame(window, QRect(at, cell));
    window->raise();
  }
}

void CloseResults() {
  for (QWidget* window : Results()) window->close();
}

}  // namespace pallomir
