#include "gui/viewers/explanation.h"

#include <QAbstractTextDocumentLayout>
#include <QTextDocument>
#include <algorithm>

namespace pallomir {

void Explanation::draw(QCPPainter* painter) {
  constexpr int kSmallest = 6;  // pixels
  const QRectF room = rect();
  QTextDocument words;
  QTextOption option(Qt::AlignHCenter);
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);  // a file name may be wider than the plot
  words.setDefaultTextOption(option);
  words.setDocumentMargin(0);
  words.setPlainText(text());
  QFont shown = font();
  for (;; shown.setPixelSize(shown.pixelSize() - 1)) {
    words.setDefaultFont(shown);
    words.setTextWidth(room.width());
    if (words.size().height() <= room.height() || shown.pixelSize() <= kSmallest) break;
  }
  QAbstractTextDocumentLayout::PaintContext context;
  context.palette.setColor(QPalette::Text, textColor());
  painter->save();
  painter->translate(room.left(), room.top() + std::max(0.0, (room.height() - words.size().height()) / 2));
  words.documentLayout()->draw(painter, context);
  painter->restore();
}

}  // namespace pallomir
