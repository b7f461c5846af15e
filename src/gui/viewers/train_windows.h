#pragma once

#include "gui/viewers/histogram_window.h"
#include "pallomir/results/train_file.h"

namespace pallomir {

/// A spike train's autocorrelation, up to 50 ms above that up to 500 ms.
class AutocorrelationWindow : public HistogramWindow {
  Q_OBJECT

 public:
  /// Throws CommandError if the result file cannot be read.
  AutocorrelationWindow(QWidget* parent, Dialogs& dialogs, const ResultTitle& title,
                        const std::filesystem::path& resultFile);
};

/// The intervals between spikes on a logarithmic scale.
class IntervalWindow : public HistogramWindow {
  Q_OBJECT

 public:
  /// Throws CommandError if the result file cannot be read.
  IntervalWindow(QWidget* parent, Dialogs& dialogs, const ResultTitle& title, const std::filesystem::path& resultFile);
};

}  // namespace pallomir
