#pragma once

class QApplication;

namespace pallomir {

/// Applies the style shared by all forms, light or dark as the desktop is.
void ApplyTheme(QApplication& application);

}  // namespace pallomir
