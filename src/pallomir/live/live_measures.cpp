#include "pallomir/live/live_measures.h"

#include <algorithm>
#include <bit>
#include <exception>
#include <utility>

#include "pallomir/files/platform.h"
#include "pallomir/recorded/position_file.h"
#include "pallomir/results/recorded_waveforms.h"
#include "pallomir/science/behaviour/spatial_autocorrelation.h"

namespace pallomir {

namespace {

/// The clusters that differ between two cuts of the same rows.
ClusterSet ChangedClusters(const std::vector<ClusterSet>& before, const std::vector<ClusterSet>& after) {
  if (before.size() != after.size()) return ~ClusterSet{0};
  ClusterSet changed = 0;
  for (size_t i = 0; i < before.size(); ++i) changed |= before[i] ^ after[i];
  return changed;
}

ByCluster<int64_t> SpikeCounts(const TimedPoints& points, const std::vector<ClusterSet>& sets) {
  ByCluster<int64_t> counts{};
  for (const int64_t row : points.Row)
    for (ClusterSet rest = sets[row]; rest != 0; rest &= rest - 1) ++counts[std::countr_zero(rest)];
  return counts;
}

void SetPart(LiveCluster& cluster, MeasurePart part, const LiveCluster& from) {
  MeasuredCluster& to = cluster.Measures;
  switch (part) {
    case MeasurePart::Train:
      to.Train = from.Measures.Train;
      cluster.Plots.Train = from.Plots.Train;
      break;
    case MeasurePart::Waveform:
      to.Average = from.Measures.Average;
      to.Waveform = from.Measures.Waveform;
      to.Missing = from.Measures.Missing;
      cluster.Plots.Heights = from.Plots.Heights;
      cluster.Plots.Waveforms = from.Plots.Waveforms;
      break;
    case MeasurePart::Place:
      to.Behaviour = from.Measures.Behaviour;
      cluster.Plots.Place = from.Plots.Place;
      break;
    case MeasurePart::Isolation:
      to.Apart = from.Measures.Apart;
      to.Separate = from.Measures.Separate;
      break;
  }
  cluster.Measured |= OnlyPart(part);
  cluster.Fresh |= OnlyPart(part);
}

}  // namespace

LiveMeasures::LiveMeasures(std::function<void()> arrived) : arrived_(std::move(arrived)) {
  for (const Lane lane : {Lane::Quick, Lane::Slow})
    workers_[static_cast<size_t>(lane)].Thread = std::thread([this, lane] { Work(lane); });
}

LiveMeasures::~LiveMeasures() {
  {
    const std::lock_guard lock(guard_);
    end_ = true;
    StopWork();
  }
  changed_.notify_all();
  for (Worker& worker : workers_) worker.Thread.join();
}

void LiveMeasures::SetRecording(std::shared_ptr<const LiveRecording> recording) {
  {
    const std::lock_guard lock(guard_);
    StopWork();
    recording_ = std::move(recording);
    sets_.reset();
    prepared_ = {};
    failed_.clear();
    cut_ = {};
    cut_.Loaded = recording_ != nullptr;
    if (recording_) cut_.LoadedMinutes = static_cast<double>(recording_->Time.Length()) / 60e6;
  }
  changed_.notify_all();
}

void LiveMeasures::SetCut(std::vector<ClusterSet> sets, const ByCluster<bool>& defined) {
  if (!recording_) return;
  const ClusterSet changed = sets_ ? ChangedClusters(*sets_, sets) : ~ClusterSet{0};
  const ByCluster<int64_t> counts = SpikeCounts(recording_->Points, sets);
  auto shared = std::make_shared<const std::vector<ClusterSet>>(std::move(sets));
  {
    const std::lock_guard lock(guard_);
    sets_ = std::move(shared);
    failed_.clear();
    for (int c = 1; c <= kClusters; ++c) {
      LiveCluster& cluster = cut_.Clusters[c];
      if (!defined[c]) cluster = {};
      const bool isNew = defined[c] && !cluster.Defined;
      cluster.Defined = defined[c];
      cluster.Spikes = counts[c];
      cluster.Measures.Number = c;
      if (isNew || (changed >> c & 1)) MakeStale(c);
    }
  }
  changed_.notify_all();
}

void LiveMeasures::MakeStale(int c) {
  cut_.Clusters[c].Fresh.reset();
  cut_.Clusters[c].SpatialLagsFresh = false;
  for (auto pair = cut_.Pairs.begin(); pair != cut_.Pairs.end();) {
    const auto [a, b] = pair->first;
    pair->second.Fresh = pair->second.Fresh && a != c && b != c;
    const bool gone = !cut_.Clusters[a].Defined || !cut_.Clusters[b].Defined;
    pair = gone ? cut_.Pairs.erase(pair) : std::next(pair);
  }
  for (Worker& worker : workers_)
    if (worker.Doing && (worker.Doing->Cluster == c || worker.Doing->Other == c)) worker.Stop = true;
}

void LiveMeasures::SetWants(const LiveWants& wants) {
  {
    const std::lock_guard lock(guard_);
    wants_ = wants;
    if (wants == LiveWants()) StopWork();
  }
  changed_.notify_all();
}

void LiveMeasures::StopWork() {
  for (Worker& worker : workers_) worker.Stop = true;
}

LiveCut LiveMeasures::Now() const {
  const std::lock_guard lock(guard_);
  return cut_;
}

void LiveMeasures::Finish() {
  std::unique_lock lock(guard_);
  changed_.wait(lock,
                [this] { return !workers_[0].Doing && !workers_[1].Doing && !Next(Lane::Quick) && !Next(Lane::Slow); });
}

// --- what to do next

bool LiveMeasures::Free(const Job& job) const {
  return std::find(failed_.begin(), failed_.end(), job) == failed_.end() &&
         std::none_of(workers_.begin(), workers_.end(), [&](const Worker& worker) { return worker.Doing == job; });
}

std::optional<LiveMeasures::Job> LiveMeasures::NextPart(Lane lane, int c, MeasurePart part) const {
  const LiveCluster& cluster = cut_.Clusters[c];
  if (!cluster.Defined || cluster.Fresh[IndexOf(part)]) return {};
  Job job{Job::What::Part, c, 0, part};
  if (part == MeasurePart::Isolation && lane == Lane::Quick) return {};
  if (part == MeasurePart::Place && !prepared_.Behaviour)
    job = {Job::What::Positions};
  else if ((part == MeasurePart::Waveform || part == MeasurePart::Isolation) && !prepared_.Places)
    job = {Job::What::Places};
  else if (part == MeasurePart::Isolation && !prepared_.Features)
    job = {Job::What::Features};
  // Reading the whole spike file must not delay what is looked at.
  if (lane == Lane::Quick && job.Kind == Job::What::Places) return {};
  return Free(job) ? std::optional(job) : std::nullopt;
}

std::optional<LiveMeasures::Job> LiveMeasures::NextOfCell(Lane lane) const {
  const int c = wants_.Cell;
  if (c == 0 || !cut_.Clusters[c].Defined) return {};
  for (const MeasurePart part :
       {MeasurePart::Train, MeasurePart::Waveform, MeasurePart::Place, MeasurePart::Isolation}) {
    if (!wants_.CellParts[IndexOf(part)]) continue;
    if (const auto job = NextPart(lane, c, part)) return job;
  }
  const Job lags{Job::What::SpatialLags, c};
  const LiveCluster& cluster = cut_.Clusters[c];
  const bool due = wants_.SpatialLags && cluster.Fresh[IndexOf(MeasurePart::Place)] && !cluster.SpatialLagsFresh;
  return due && lane == Lane::Quick && Free(lags) ? std::optional(lags) : std::nullopt;
}

std::optional<LiveMeasures::Job> LiveMeasures::NextOfTable(Lane lane) const {
  for (const MeasurePart part : {MeasurePart::Train, MeasurePart::Place, MeasurePart::Waveform, MeasurePart::Isolation})
    for (int c = 1; c <= kClusters && wants_.Table[IndexOf(part)]; ++c)
      if (const auto job = NextPart(lane, c, part)) return job;
  return {};
}

std::optional<LiveMeasures::Job> LiveMeasures::NextPair() const {
  for (size_t i = 0; i < wants_.Correlograms.size(); ++i)
    for (size_t j = i; j < wants_.Correlograms.size(); ++j) {
      const auto [a, b] = std::minmax(wants_.Correlograms[i], wants_.Correlograms[j]);
      const auto known = cut_.Pairs.find({a, b});
      const Job job{Job::What::Pair, a, b};
      const bool fresh = known != cut_.Pairs.end() && known->second.Fresh;
      if (!fresh && cut_.Clusters[a].Defined && cut_.Clusters[b].Defined && Free(job)) return job;
    }
  return {};
}

std::optional<LiveMeasures::Job> LiveMeasures::Next(Lane lane) const {
  if (!recording_ || !sets_) return {};
  if (const auto job = NextOfCell(lane)) return job;
  if (const auto job = NextOfTable(lane)) return job;
  return NextPair();
}

// --- doing it

void LiveMeasures::Work(Lane lane) {
  WorkInBackground();
  Worker& worker = workers_[static_cast<size_t>(lane)];
  std::unique_lock lock(guard_);
  for (;;) {
    std::optional<Job> job;
    changed_.wait(lock, [&] { return end_ || (job = Next(lane)); });
    if (end_) return;
    worker.Stop = false;
    worker.Doing = job;
    Run(worker, *job, lock);
    worker.Doing.reset();
    lock.unlock();
    changed_.notify_all();
    arrived_();
    lock.lock();
  }
}

void LiveMeasures::Run(const Worker& worker, const Job& job, std::unique_lock<std::mutex>& lock) {
  const Inputs inputs{recording_, sets_, prepared_, cut_.Clusters[job.Cluster]};
  lock.unlock();
  std::function<void(LiveMeasures&)> store;
  try {
    store = Compute(job, inputs, Progress([&worker](double) { return !worker.Stop; }));
  } catch (const Interrupted&) {
    // What it was for has changed.
  } catch (const std::exception& error) {
    store = [&, why = std::string(error.what())](LiveMeasures& live) { live.Fail(job, why); };
  }
  lock.lock();
  if (store && !worker.Stop) store(*this);
}

void LiveMeasures::Fail(const Job& job, const std::string& why) {
  failed_.push_back(job);
  const bool ofPositions =
      job.Kind == Job::What::Positions || (job.Kind == Job::What::Part && job.Part == MeasurePart::Place);
  const bool ofSpikes = job.Kind == Job::What::Places || job.Kind == Job::What::Features ||
                        (job.Kind == Job::What::Part && job.Part == MeasurePart::Waveform);
  if (ofPositions) cut_.WhyNoPositions = why;
  if (ofSpikes) cut_.WhyNoSpikeFile = why;
}

std::function<void(LiveMeasures&)> LiveMeasures::Compute(const Job& job, const Inputs& inputs,
                                                         const Progress& progress) {
  const LiveRecording& recording = *inputs.Recording;
  switch (job.Kind) {
    case Job::What::Places:
      return [places = FindPlaces(recording, progress)](LiveMeasures& live) {
        live.prepared_.Places = places;
        live.cut_.InMicrovolts = places->InMicrovolts;
      };
    case Job::What::Features: {
      RecordedWaveforms recorded(recording.SpikeFile, recording.Time, progress.Part(0, 0.3),
                                 RecordedWaveforms::Samples::Reread);
      auto features = std::make_shared<SpikeFeatures>(FeaturesOf(recorded, progress.Part(0.3, 1)));
      return [features](LiveMeasures& live) { live.prepared_.Features = features; };
    }
    case Job::What::Positions: {
      const Positions positions = ReadPositions(recording.PositionFile, progress.Part(0, 0.5));
      auto arena = std::make_shared<Arena>(positions, recording.Time, recording.Settings);
      return [arena](LiveMeasures& live) { live.prepared_.Behaviour = arena; };
    }
    case Job::What::SpatialLags: {
      auto lags = std::make_shared<Map>(SpatialAutocorrelation(inputs.Cluster.Plots.Place->Rate, progress));
      return [lags, c = job.Cluster](LiveMeasures& live) {
        live.cut_.Clusters[c].Plots.SpatialLags = lags;
        live.cut_.Clusters[c].SpatialLagsFresh = true;
      };
    }
    case Job::What::Pair: {
      const auto& points = recording.Points;
      auto lags = std::make_shared<Correlogram>(CorrelogramOf(points.SpikesOf(*inputs.Sets, job.Cluster),
                                                              points.SpikesOf(*inputs.Sets, job.Other), recording.Time,
                                                              recording.Settings.Correlogram));
      return [lags, job](LiveMeasures& live) { live.cut_.Pairs[{job.Cluster, job.Other}] = {lags, true}; };
    }
    case Job::What::Part:
      return [measured = MeasurePartOf(job, inputs, progress), job](LiveMeasures& live) {
        SetPart(live.cut_.Clusters[job.Cluster], job.Part, measured);
      };
  }
  return {};
}

LiveCluster LiveMeasures::MeasurePartOf(const Job& job, const Inputs& inputs, const Progress& progress) {
  LiveCluster cluster = inputs.Cluster;
  const LiveRecording& recording = *inputs.Recording;
  const auto spikes = [&] { return recording.Points.SpikesOf(*inputs.Sets, job.Cluster); };
  switch (job.Part) {
    case MeasurePart::Train:
      MeasureTrain(cluster, recording, spikes(), progress);
      break;
    case MeasurePart::Waveform:
      MeasureWaveforms(cluster, recording, *inputs.Prepared.Places, *inputs.Sets, progress);
      break;
    case MeasurePart::Place:
      MeasurePlace(cluster, *inputs.Prepared.Behaviour, spikes());
      break;
    case MeasurePart::Isolation:
      MeasureIsolation(cluster.Measures, *inputs.Prepared.Features,
                       inputs.Prepared.Places->MembersOf(*inputs.Sets, job.Cluster), progress);
      break;
  }
  return cluster;
}

}  // namespace pallomir
