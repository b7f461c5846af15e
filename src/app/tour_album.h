#pragma once

#include <QtWidgets>
#include <cstdio>

namespace pallomir {

/// An image reduced to at most 256 colours, a third of the size on disk. Colours are merged with others that differ
/// imperceptibly, so that the shades of text do not displace the colours of a map.
inline QImage InFewColours(const QImage& picture) {
  constexpr int kUnseen = 4;  // of 255, in red, green and blue
  const QImage plain = picture.convertToFormat(QImage::Format_RGB32);
  QHash<QRgb, int> counts;
  for (int y = 0; y < plain.height(); ++y)
    for (int x = 0; x < plain.width(); ++x) ++counts[plain.pixel(x, y)];
  QList<QRgb> byFrequency = counts.keys(), chosen;
  std::sort(byFrequency.begin(), byFrequency.end(),
            [&](QRgb a, QRgb b) { return std::pair(-counts[a], a) < std::pair(-counts[b], b); });
  const auto alike = [](QRgb a, QRgb b) {
    return std::abs(qRed(a) - qRed(b)) <= kUnseen && std::abs(qGreen(a) - qGreen(b)) <= kUnseen &&
           std::abs(qBlue(a) - qBlue(b)) <= kUnseen;
  };
  for (const QRgb colour : byFrequency) {
    const bool there = std::any_of(chosen.begin(), chosen.end(), [&](QRgb other) { return alike(colour, other); });
    if (!there && chosen.size() < 256) chosen << colour;
  }
  return plain.convertToFormat(QImage::Format_Indexed8, chosen, Qt::ThresholdDither);
}

/// The folder of screenshots written by a tour, which prints what each of them shows.
class Album {
 public:
  explicit Album(const QString& folder) : folder_(folder) { QDir().mkpath(folder); }

  void Keep(const QPixmap& picture, const QString& name, const char* what) {
    constexpr int kSmallest = 0;  // of PNG's quality settings: the same pixels in fewer bytes
    const QString path = folder_ + "/" + name + ".png";
    if (!InFewColours(picture.toImage()).save(path, "PNG", kSmallest)) qFatal("cannot write %s", qPrintable(path));
    std::printf("  %-26s%s\n", qPrintable(name + ".png"), what);
    ++pictures_;
  }

  /// Two windows side by side, as on a desktop.
  void Keep(QWidget* left, QWidget* right, const QString& name, const char* what) {
    const QPixmap first = left->grab(), second = right->grab();
    constexpr int kGap = 6;
    QPixmap desk(first.width() + kGap + second.width(), std::max(first.height(), second.height()));
    desk.fill(QColor(150, 158, 170));
    {
      QPainter painter(&desk);
      painter.drawPixmap(0, 0, first);
      painter.drawPixmap(first.width() + kGap, 0, second);
    }
    Keep(desk, name, what);
  }

  void Close() const { std::printf("%d pictures in %s\n", pictures_, qPrintable(QDir::toNativeSeparators(folder_))); }

 private:
  QString folder_;
  int pictures_ = 0;
};

}  // namespace pallomir
