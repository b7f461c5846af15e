#pragma once

#include <array>
#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#include "pallomir/live/live_cut.h"
#include "pallomir/live/live_recording.h"

namespace pallomir {

/// Measures the clusters of a cut on two threads of its own while the user goes on cutting: the quick one serves what
/// is looked at, the slow one prepares the spike file and computes isolation. A change of the cut makes stale only what
/// depends on the clusters that it changed, and ends work on them. Call it from one thread.
class LiveMeasures {
 public:
  /// `arrived` is called on a thread of this class whenever Now() would return something new.
  explicit LiveMeasures(std::function<void()> arrived);
  ~LiveMeasures();
  LiveMeasures(const LiveMeasures&) = delete;
  LiveMeasures& operator=(const LiveMeasures&) = delete;

  /// Another recording or range, not cut yet; null for none.
  void SetRecording(std::shared_ptr<const LiveRecording> recording);
  /// The present cut: the clusters of each row, and which clusters there are.
  void SetCut(std::vector<ClusterSet> sets, const ByCluster<bool>& defined);
  void SetWants(const LiveWants& wants);

  LiveCut Now() const;
  /// Waits until everything wanted is measured.
  void Finish();

 private:
  enum class Lane { Quick, Slow };
  /// What a thread computes next.
  struct Job {
    enum class What { Places, Features, Positions, Part, SpatialLags, Pair } Kind;
    int Cluster = 0, Other = 0;
    MeasurePart Part = MeasurePart::Train;
    bool operator==(const Job&) const = default;
  };
  /// What a job works on: copies, so that the state may change meanwhile.
  struct Inputs {
    std::shared_ptr<const LiveRecording> Recording;
    std::shared_ptr<const std::vector<ClusterSet>> Sets;
    LivePreparations Prepared;
    LiveCluster Cluster;
  };
  struct Worker {
    std::optional<Job> Doing;
    /// The result is no longer wanted. Set only under the lock.
    std::atomic<bool> Stop = false;
    std::thread Thread;
  };

  void Work(Lane lane);
  /// Does a job without the lock, which `lock` holds before and after, and stores its result.
  void Run(const Worker& worker, const Job& job, std::unique_lock<std::mutex>& lock);
  /// Computes a job; returns what stores the result under the lock.
  static std::function<void(LiveMeasures&)> Compute(const Job& job, const Inputs& inputs, const Progress& progress);
  static LiveCluster MeasurePartOf(const Job& job, const Inputs& inputs, const Progress& progress);

  // Called under the lock.
  void Fail(const Job& job, const std::string& why);
  void StopWork();
  /// Everything that depends on cluster c.
  void MakeStale(int c);

  // The next job of a thread in the order of urgency, called under the lock.
  std::optional<Job> Next(Lane lane) const;
  std::optional<Job> NextOfCell(Lane lane) const;
  std::optional<Job> NextOfTable(Lane lane) const;
  std::optional<Job> NextPair() const;
  /// A part of a cluster, or what has to be prepared for it.
  std::optional<Job> NextPart(Lane lane, int c, MeasurePart part) const;
  /// Whether no other thread does the job, and it has not failed.
  bool Free(const Job& job) const;

  const std::function<void()> arrived_;
  mutable std::mutex guard_;
  std::condition_variable changed_;
  bool end_ = false;
  std::shared_ptr<const LiveRecording> recording_;
  std::shared_ptr<const std::vector<ClusterSet>> sets_;
  LivePreparations prepared_;
  LiveWants wants_;
  LiveCut cut_;
  std::vector<Job> failed_;
  std::array<Worker, 2> workers_;
};

}  // namespace pallomir
