#pragma once

#include <qcustomplot.h>

namespace pallomir {

/// How values become colours. All but Jet change their lightness evenly from one end to the other, so that equal
/// differences look equal. Gray is darkest at the highest value, to be told from unvisited white.
enum class ColourScale { Even, Jet, Heat, Gray };

inline constexpr ColourScale kColourScales[] = {ColourScale::Even, ColourScale::Jet, ColourScale::Heat,
                                                ColourScale::Gray};

/// "Even", "Jet", "Heat", "Gray".
QString NameOf(ColourScale scale);

/// The colours; white where there is no value.
QCPColorGradient GradientOf(ColourScale scale);

}  // namespace pallomir
