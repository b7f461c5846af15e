#pragma once

class QApplication;

namespace pallomir {

/// The look that all forms share, light or dark as the desktop is.
void ApplyTheme(QApplication& application);

}  // namespace pallomir
