#pragma once

#include <qcustomplot.h>

namespace pallomir {

/// Why a plot is empty, shown in its middle: wrapped to its width, in a smaller font if it would not fit otherwise.
class Explanation : public QCPTextElement {
 public:
  using QCPTextElement::QCPTextElement;

  QSize minimumOuterSizeHint() const override { return {}; }
  QSize maximumOuterSizeHint() const override { return {QWIDGETSIZE_MAX, QWIDGETSIZE_MAX}; }

 protected:
  void draw(QCPPainter* painter) override;
};

}  // namespace pallomir
