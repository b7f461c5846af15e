#include "pallomir/results/direction_file.h"

#include "pallomir/files/file_fault.h"
#include "pallomir/files/save_file.h"
#include "pallomir/results/result_text.h"

namespace pallomir {

namespace {

constexpr const char* kKind = "HeadDirection";
constexpr int64_t kMostDirections = 3600;
constexpr const char* kOfTravel = "travel";
constexpr const char* kBins = "DirectionBins";

/// As many as the settings in the header say; most files have none.
int BinsFrom(const ResultText& text) {
  const int64_t bins = HeaderCount(text.Header(), kBins, text.File());
  if (bins < 0 || bins > kMostDirections)
    throw FaultAt(ErrorKind::Broken, text.File(), FilePlace::InHeader(), std::to_string(bins) + " bins are too many");
  return bins > 0 ? static_cast<int>(bins) : DirectionSettings().Bins;
}

}  // namespace

void WriteDirectionFile(const DirectionResult& result, const std::filesystem::path& path) {
  const DirectionTuning& tuning = result.Tuning;
  std::vector<HeaderEntry> lines = HeaderEntries(result.Used);
  lines.push_back({"DirectionOf", result.OfTravel ? kOfTravel : "head"});
  AddNumber(lines, "MeanVectorLength", tuning.VectorLength);
  AddNumber(lines, "MeanVectorDirection", tuning.VectorDirection);
  AddNumber(lines, "Coverage", tuning.Coverage);
  AddNumber(lines, "Peak", tuning.PeakRate);
  if (!result.Explanation.empty()) lines.push_back({"Explanation", result.Explanation});
  std::string text = TextHeader(kKind, {}, lines) + "from (degrees),to (degrees),spikes,dwell (s),rate (spikes/s)\r\n";
  for (int bin = 0; bin < tuning.Count(); ++bin) {
    text += ResultNumber(bin * tuning.Width()) + "," + ResultNumber((bin + 1) * tuning.Width());
    for (const double value : {tuning.Spikes[bin], tuning.Dwell[bin], tuning.Rate[bin]})
      text.append(",").append(ResultNumber(value));
    text += "\r\n";
  }
  SaveFile file(path);
  file.Write(text);
  file.Commit();
}

DirectionResult ReadDirectionFile(const std::filesystem::path& path) {
  ResultText text(path, kKind);
  DirectionResult result;
  result.Used = UsageFrom(text.Header(), text.File());
  result.OfTravel = HeaderValue(text.Header(), "DirectionOf") == kOfTravel;
  result.Explanation = HeaderValue(text.Header(), "Explanation").value_or("");
  result.Tuning = DirectionTuning(BinsFrom(text));
  text.Line();
  for (int bin = 0; bin < result.Tuning.Count(); ++bin) {
    std::vector<double> numbers;
    text.Numbers(5, numbers);
    if (numbers[0] != bin * result.Tuning.Width())
      text.Fault("this should be the bin from " + ResultNumber(bin * result.Tuning.Width()));
    result.Tuning.Spikes[bin] = numbers[2];
    result.Tuning.Dwell[bin] = numbers[3];
    result.Tuning.Rate[bin] = numbers[4];
  }
  result.Tuning.SpikesUsed = result.Used.SpikesUsed;
  DeriveFromRates(result.Tuning);
  return result;
}

}  // namespace pallomir
