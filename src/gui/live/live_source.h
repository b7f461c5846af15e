#pragma once

#include <QObject>
#include <atomic>
#include <filesystem>
#include <optional>

#include "pallomir/live/live_measures.h"
#include "pallomir/session/session.h"

namespace pallomir {

/// What is measured besides the session.
struct LiveContext {
  std::filesystem::path PositionFile;
  /// The records of the chosen epochs, if not all count.
  std::optional<RecordRanges> Displayed;
  bool operator==(const LiveContext&) const = default;
};

/// Gives copies of the session to the threads that measure, when it has changed, and collects what they found.
class LiveSource : public QObject {
  Q_OBJECT

 public:
  explicit LiveSource(const Session& session);

  /// Brings the threads up to date, and lets them compute `wants`.
  void Follow(const LiveContext& context, const LiveWants& wants);
  const LiveCut& Cut() const { return cut_; }

  /// Waits until everything wanted is measured.
  void Finish();

 signals:
  /// Cut() has changed.
  void Arrived();

 private:
  void GiveRecording(const LiveContext& context);
  void Collect();

  const Session& session_;
  LiveCut cut_;
  // What the threads were given:
  std::optional<LiveContext> context_;
  PointTable::Version version_;
  ByCluster<bool> defined_{};
  /// Collect() is due.
  std::atomic<bool> called_ = false;
  LiveMeasures measures_;
};

}  // namespace pallomir
