#include "tools/figures.h"
#include "tools/import/import_recording.h"

namespace pallomir {

namespace {

/// "TT1.Ntt: 80 000 spikes", followed by oddities of their records.
std::string RecordsLine(const std::string& name, const std::string& records, const StampSeries& stamps, size_t trailing,
                        bool isSorted) {
  std::string line = name + ": " + CountText(stamps.Count) + " " + records;
  if (stamps.Disordered > 0)
    line += "; earlier than the previous one: " + CountText(stamps.Disordered) +
            (isSorted ? ", so all were sorted by time" : ", copied as they are");
  if (trailing > 0) line += "; incomplete record dropped at the end: " + std::to_string(trailing) + " bytes";
  return line + ".";
}

std::string TrackingLine(const Tracking& video) {
  std::string line = "Tracking: " + RoundedText(video.FrameRate, 2) + " frames per second";
  line += "; frames lost: " + CountText(video.Lost) + ", in runs: " + CountText(video.LostRuns);
  line += "; gaps of more than " + DurationText(kLongestBridge) + ": " + CountText(video.Gaps);
  if (video.Gaps > 0) line += ", the longest " + DurationText(video.LongestGap);
  if (video.Samples.Unreadable > 0)
    line += "; frames left out because of impossible timestamps: " +
            CountText(static_cast<uint64_t>(video.Samples.Unreadable));
  return line + ".";
}

std::string LeftLine(const std::vector<std::string>& names) {
  std::string line;
  for (const std::string& name : names) line += (line.empty() ? "" : ", ") + name;
  return "Already there, unchanged: " + line + ".";
}

}  // namespace

std::vector<std::string> ImportReport::Lines() const {
  std::vector<std::string> lines{RecordsLine(SpikesName, "spikes", Spikes, SpikesTrailing, true)};
  if (WaveformLength != 0 && WaveformLength != kWaveformSamples)
    lines.push_back(SpikesName + ": the header gives waveforms of " + std::to_string(WaveformLength) +
                    " samples; the 32 in each record were used.");
  if (HasVideo) {
    lines.push_back(RecordsLine("Video", "frames", Video.Stamps, VideoTrailing, true));
    lines.push_back(TrackingLine(Video));
    lines.push_back("Positions: " + CountText(SpikesPlaced) + " of " + CountText(Spikes.Count) +
                    " spikes lie within tracked time.");
    lines.push_back("Head angles: " + AnglesSentence(Angles) + ".");
  } else {
    lines.emplace_back("Without a video file, PosX and PosY are 0; no Pos.p was created or changed.");
  }
  if (HasEvents) lines.push_back(RecordsLine("Events", "events", Events, EventsTrailing, false));
  if (!Left.empty()) lines.push_back(LeftLine(Left));
  return lines;
}

}  // namespace pallomir
