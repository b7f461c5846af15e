#include "tools/figures.h"
#include "tools/import/import_recording.h"

namespace pallomir {

namespace {

/// "TT1.Ntt: 80 000 spikes", then what was odd about their records.
std::string RecordsLine(const std::string& name, const std::string& records, const StampSeries& stamps, size_t trailing,
                        bool isSorted) {
  std::string line = name + ": " + CountText(stamps.Count) + " " + records;
  if (stamps.Disordered > 0)
    line += "; earlier than the one before: " + CountText(stamps.Disordered) +
            (isSorted ? ", so all were sorted by time" : ", copied as they are");
  if (trailing > 0) line += "; dropped at the end, as no whole record: " + std::to_string(trailing) + " bytes";
  return line + ".";
}

std::string TrackingLine(const Tracking& video) {
  std::string line = "Tracking: " + RoundedText(video.FrameRate, 2) + " frames a second";
  line += "; frames lost: " + CountText(video.Frames.size() - video.Good.size()) +
          ", in runs: " + CountText(video.LostRuns);
  line += "; gaps of more than " + DurationText(kLongestFrameGap) + ": " + CountText(video.Gaps);
  if (video.Gaps > 0) line += ", the longest " + DurationText(video.LongestGap);
  return line + ".";
}

}  // namespace

std::vector<std::string> ImportReport::Lines() const {
  std::vector<std::string> lines{RecordsLine(SpikesName, "spikes", Spikes, SpikesTrailing, true)};
  if (WaveformLength != 0 && WaveformLength != kWaveformSamples)
    lines.push_back(SpikesName + ": the header gives waveforms of " + std::to_string(WaveformLength) +
                    " samples; the 32 of each record were taken.");
  if (HasVideo) {
    lines.push_back(RecordsLine("Video", "frames", Video.Stamps, VideoTrailing, true));
    lines.push_back(TrackingLine(Video));
    lines.push_back("Places: " + CountText(SpikesPlaced) + " of " + CountText(Spikes.Count) +
                    " spikes lie in tracked time.");
  }
  if (HasEvents) lines.push_back(RecordsLine("Events", "events", Events, EventsTrailing, false));
  return lines;
}

}  // namespace pallomir
