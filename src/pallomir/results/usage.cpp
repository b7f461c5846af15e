#include "pallomir/results/usage.h"

#include "pallomir/files/number_text.h"
#include "pallomir/results/measure_settings_file.h"
#include "pallomir/results/result_text.h"

namespace pallomir {

namespace {

struct Count {
  const char* Key;
  int64_t Usage::*Member;
};

constexpr Count kCounts[] = {
    {"Spikes", &Usage::Spikes},
    {"SpikesUsed", &Usage::SpikesUsed},
    {"SpikesOutside", &Usage::SpikesOutside},
    {"SpikesUnreadable", &Usage::SpikesUnreadable},
    {"SpikesDisordered", &Usage::SpikesDisordered},
    {"Samples", &Usage::Samples},
    {"SamplesLost", &Usage::SamplesLost},
    {"SamplesInterpolated", &Usage::SamplesInterpolated},
    {"SamplesDisordered", &Usage::SamplesDisordered},
    {"SamplesUnreadable", &Usage::SamplesUnreadable},
};

/// "1 spike was", "2 spikes were".
std::string Subject(int64_t count, const std::string& what) {
  return Grouped(count) + " " + what + (count == 1 ? " was" : "s were");
}

}  // namespace

void SetSpikes(Usage& usage, const SpikeTimes& spikes) {
  usage.Spikes = usage.SpikesUsed = static_cast<int64_t>(spikes.Times.size());
  usage.SpikesOutside = spikes.Outside;
  usage.SpikesUnreadable = spikes.Unreadable;
  usage.SpikesDisordered = spikes.Disordered;
}

void SetSamples(Usage& usage, const Positions& positions, const Track& track) {
  usage.Samples = static_cast<int64_t>(track.Time.size());
  usage.SamplesLost = track.Lost;
  usage.SamplesInterpolated = track.Interpolated;
  usage.SamplesDisordered = positions.Disordered;
  usage.SamplesUnreadable = positions.Unreadable;
}

std::string UsageText(const Usage& usage) {
  std::string text;
  const auto say = [&text](int64_t count, const std::string& sentence) {
    if (count > 0) text += (text.empty() ? "" : " ") + sentence;
  };
  say(usage.Spikes, "Used " + Grouped(usage.SpikesUsed) + " of " + Grouped(usage.Spikes) + " spikes.");
  say(usage.SpikesOutside, Subject(usage.SpikesOutside, "spike") + " outside the time range.");
  say(usage.SpikesUnreadable, Grouped(usage.SpikesUnreadable) +
                                  (usage.SpikesUnreadable == 1 ? " spike has" : " spikes have") +
                                  " an impossible timestamp: left out.");
  say(usage.SpikesDisordered, Subject(usage.SpikesDisordered, "spike") + " out of time order and sorted.");
  say(usage.SamplesLost,
      "The animal was lost in " + Grouped(usage.SamplesLost) + " of " + Grouped(usage.Samples) + " position samples.");
  say(usage.SamplesInterpolated, Subject(usage.SamplesInterpolated, "lost position sample") + " interpolated.");
  say(usage.SamplesDisordered, Subject(usage.SamplesDisordered, "position sample") + " out of time order and sorted.");
  say(usage.SamplesUnreadable, Subject(usage.SamplesUnreadable, "unreadable line") + " left out of the position file.");
  if (usage.Settings.empty()) return text;
  text.append(text.empty() ? "Settings:" : " Settings:");
  for (const HeaderEntry& entry : usage.Settings)
    text.append(" ").append(entry.Key).append(" ").append(entry.Value).append(",");
  text.back() = '.';
  return text;
}

std::vector<HeaderEntry> HeaderEntries(const Usage& usage) {
  std::vector<HeaderEntry> lines;
  for (const auto& [key, member] : kCounts) lines.push_back({key, std::to_string(usage.*member)});
  lines.insert(lines.end(), usage.Settings.begin(), usage.Settings.end());
  return lines;
}

Usage UsageFrom(std::string_view header, const std::filesystem::path& file) {
  Usage usage;
  for (const auto& [key, member] : kCounts) usage.*member = HeaderCount(header, key, file);
  for (const HeaderEntry& known : SettingEntries({}))
    if (const auto value = HeaderValue(header, known.Key)) usage.Settings.push_back({known.Key, *value});
  return usage;
}

}  // namespace pallomir
