#include <string_view>

#include "fuzz/fuzz_target.h"
#include "pallomir/results/measure_settings_file.h"
#include "pallomir/session/axis_scale_file.h"
#include "pallomir/session/defaults_file.h"
#include "support/refusal.h"
#include "support/temporary_folder.h"

namespace pallomir {

/// The bytes as a Defaults file, an axis-scale file and measure settings: what is read can be written and read back.
FUZZ_TARGET(FuzzSettings) {
  static const TemporaryFolder folder;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  folder.Put("Defaults", bytes);
  folder.Put("AxesScaleFile", bytes);
  Session session, again;
  session.DataDirectory = folder / ".";
  Defaults read, copy;
  if (Refusal([&] { ReadDefaults(session, read, folder / "Defaults"); }).empty() &&
      Refusal([&] { WriteDefaults(session, read, folder / "copy"); }).empty()) {
    REQUIRE(Refusal([&] { ReadDefaults(again, copy, folder / "copy"); }).empty());
    REQUIRE(copy.Epochs == read.Epochs && copy.PosFile == read.PosFile && copy.ParamFile.empty());
  }
  const auto before = session.AxisMaximum;
  const bool restored = Refusal([&] { ReadAxesScaleFile(session); }).empty();
  REQUIRE(restored || session.AxisMaximum == before);
  folder.Put("MeasureSettings", bytes);
  MeasureSettings settings;
  if (Refusal([&] { settings = ReadMeasureSettings(folder / "."); }).empty()) {
    std::string lines;
    for (const HeaderEntry& entry : SettingEntries(settings)) lines += entry.Key + " " + entry.Value + "\n";
    folder.Put("MeasureSettings", lines);
    REQUIRE(ReadMeasureSettings(folder / ".") == settings);
  }
  return 0;
}

}  // namespace pallomir
