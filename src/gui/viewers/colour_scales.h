#pragma once

#include <qcustomplot.h>

namespace pallomir {

/// How values map to colours. In all but Jet the lightness changes evenly from one end to the other, so that equal
/// differences look equal. Gray is darkest at the highest value, to distinguish it from unvisited white.
enum class ColourScale { Even, Jet, Heat, Gray };

inline constexpr ColourScale kColourScales[] = {ColourScale::Even, ColourScale::Jet, ColourScale::Heat,
                                                ColourScale::Gray};

/// "Even", "Jet", "Heat", "Gray".
QString NameOf(ColourScale scale);

/// The colour gradient; white for missing values.
QCPColorGradient GradientOf(ColourScale scale);

}  // namespace pallomir
