#include "gui/live/live_source.h"

#include "pallomir/analyses/commands.h"
#include "pallomir/files/error.h"
#include "pallomir/results/measure_settings_file.h"

namespace pallomir {

namespace {

MeasureSettings SettingsOf(const std::filesystem::path& folder) {
  try {
    return ReadMeasureSettings(folder);
  } catch (const CommandError&) {
    return {};  // the analyses say what is wrong with the file
  }
}

}  // namespace

LiveSource::LiveSource(const Session& session)
    : session_(session), measures_([this] {
        if (!called_.exchange(true)) QMetaObject::invokeMethod(this, &LiveSource::Collect, Qt::QueuedConnection);
      }) {}

void LiveSource::Follow(const LiveContext& context, const LiveWants& wants) {
  if (wants == LiveWants()) {
    measures_.SetWants(wants);
    return;
  }
  const PointTable::Version version = session_.Points.CurrentVersion();
  const bool otherRecording = version.Table != version_.Table || context_ != context;
  if (otherRecording) GiveRecording(context);
  if (otherRecording || version != version_ || defined_ != session_.ClusterDefined)
    measures_.SetCut(ClusterSetsOf(session_.Points), session_.ClusterDefined);
  version_ = version;
  defined_ = session_.ClusterDefined;
  measures_.SetWants(wants);
  cut_ = measures_.Now();
}

void LiveSource::GiveRecording(const LiveContext& context) {
  context_ = context;
  const PointTable& points = session_.Points;
  const LoadedTime time = LoadedTimeOf(points, context.Displayed);
  if (!PointsLoaded(session_) || time.Length() <= 0) {
    measures_.SetRecording(nullptr);
    return;
  }
  measures_.SetRecording(
      std::make_shared<LiveRecording>(LiveRecording{SpikeFilePath(session_.File.Path), context.PositionFile, time,
                                                    SettingsOf(session_.DataDirectory), TimedPoints(points, time)}));
}

void LiveSource::Collect() {
  called_ = false;
  cut_ = measures_.Now();
  emit Arrived();
}

void LiveSource::Finish() {
  measures_.Finish();
  Collect();
}

}  // namespace pallomir
