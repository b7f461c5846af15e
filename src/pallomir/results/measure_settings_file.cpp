#include "pallomir/results/measure_settings_file.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <optional>

#include "pallomir/files/file_fault.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/file_utility.h"
#include "pallomir/files/number_text.h"
#include "pallomir/files/platform.h"
#include "pallomir/files/text_lines.h"

namespace pallomir {

namespace {

constexpr double kAny = std::numeric_limits<double>::infinity();

/// A setting by name, with the numbers that it can have.
struct Setting {
  const char* Name;
  double Least, Most;
  bool Whole;
  std::function<double(const MeasureSettings&)> Get;
  std::function<void(MeasureSettings&, double)> Set;
};

template <class Part, class Value>
Setting SettingOf(const char* name, double least, double most, Part MeasureSettings::*part, Value Part::*value) {
  return {name,
          least,
          most,
          std::is_integral_v<Value>,
          [=](const MeasureSettings& settings) { return static_cast<double>(settings.*part.*value); },
          [=](MeasureSettings& settings, double number) { settings.*part.*value = static_cast<Value>(number); }};
}

const std::vector<Setting>& Settings() {
  using M = MapSettings;
  using S = MeasureSettings;
  static const std::vector<Setting> settings = {
      SettingOf("BinCm", 0.1, 1000, &S::Map, &M::BinCm),
      SettingOf("SmoothingBins", 0, 100, &S::Map, &M::SmoothingBins),
      SettingOf("MinimumOccupancy", 0, kAny, &S::Map, &M::MinimumOccupancy),
      SettingOf("SlowestCm", 0, kAny, &S::Map, &M::SlowestCm),
      SettingOf("FastestCm", 0, kAny, &S::Map, &M::FastestCm),
      SettingOf("JumpCm", 1, kAny, &S::Map, &M::JumpCm),
      SettingOf("DirectionBins", 4, 3600, &S::Direction, &DirectionSettings::Bins),
      SettingOf("DirectionSmoothing", 0, 90, &S::Direction, &DirectionSettings::SmoothingDegrees),
      SettingOf("CorrelogramWindow", 1, 10'000, &S::Correlogram, &CorrelogramSettings::WindowMs),
      SettingOf("CorrelogramBin", 0.05, 1000, &S::Correlogram, &CorrelogramSettings::BinMs),
      SettingOf("Shifts", 1, 1'000'000, &S::Chance, &ChanceSettings::Shifts),
      SettingOf("Seed", 0, 9'007'199'254'740'992, &S::Chance, &ChanceSettings::Seed),
  };
  return settings;
}

constexpr std::string_view kNone = "none";  // of limits: nothing is too large

std::string ValueText(double value) {
  return value < kAny ? DoubleText(value) : std::string(kNone);
}

std::optional<double> ValueFromText(std::string_view text) {
  return Trimmed(text) == kNone ? kAny : NumberFromText(text);
}

void Apply(const TextLine& line, const std::filesystem::path& path, MeasureSettings& settings) {
  std::string_view rest = line.Text;
  const std::string name(TakeWord(rest));
  const auto& all = Settings();
  const auto setting = std::find_if(all.begin(), all.end(), [&](const Setting& s) { return name == s.Name; });
  if (setting == all.end())
    throw FaultAt(ErrorKind::Refused, path, FilePlace::AtLine(line.Number), "\"" + name + "\" is not a setting");
  const auto number = ValueFromText(rest);
  if (!number || !(*number >= setting->Least && *number <= setting->Most) ||
      (setting->Whole && *number != std::floor(*number)))
    throw FaultAt(ErrorKind::Refused, path, FilePlace::AtLine(line.Number),
                  name + " must be " + (setting->Whole ? "a whole number" : "a number") + " from " +
                      DoubleText(setting->Least) + (setting->Most < kAny ? " to " + DoubleText(setting->Most) : " on"));
  setting->Set(settings, *number);
}

}  // namespace

MeasureSettings ReadMeasureSettings(const std::filesystem::path& folder) {
  MeasureSettings settings;
  std::filesystem::path path = PathIn(folder, kMeasureSettingsFile);
  if (!FileUtility::FileExists(path)) path = PathIn(folder / "..", kMeasureSettingsFile);
  if (!FileUtility::FileExists(path)) return settings;
  const std::string text = ReadText(path);
  TextLines lines(text);
  for (TextLine line; lines.Take(line);)
    if (!Trimmed(line.Text).empty() && line.Text.front() != '#') Apply(line, path, settings);
  return settings;
}

std::vector<HeaderEntry> SettingEntries(const MeasureSettings& settings) {
  std::vector<HeaderEntry> entries;
  for (const Setting& setting : Settings()) entries.push_back({setting.Name, ValueText(setting.Get(settings))});
  return entries;
}

std::vector<HeaderEntry> UnusualEntries(const MeasureSettings& settings) {
  MeasureSettings usual = settings;
  usual.Map = {};
  usual.Direction = {};
  std::vector<HeaderEntry> entries;
  for (const Setting& setting : Settings())
    if (setting.Get(settings) != setting.Get(usual))
      entries.push_back({setting.Name, ValueText(setting.Get(settings))});
  return entries;
}

}  // namespace pallomir
