#include "pallomir/results/train_file.h"

#include <cmath>

#include "pallomir/files/number_text.h"
#include "pallomir/files/save_file.h"
#include "pallomir/results/result_text.h"

namespace pallomir {

namespace {

constexpr const char* kAutocorrelationKind = "TrainAutoCorr";
constexpr const char* kIntervalKind = "LogISI";

void Save(const std::filesystem::path& path, const char* kind, std::vector<HeaderEntry> lines,
          const std::string& explanation, const std::string& body) {
  if (!explanation.empty()) lines.push_back({"Explanation", explanation});
  SaveFile file(path);
  file.Write(TextHeader(kind, {}, lines) + body);
  file.Commit();
}

/// Checks that the next line begins with the edges of a bin, and returns its count.
int64_t CountOfBin(ResultText& text, const std::vector<double>& edges) {
  std::vector<double> numbers;
  text.Numbers(edges.size() + 1, numbers);
  for (size_t k = 0; k < edges.size(); ++k)
    if (!(std::abs(numbers[k] - edges[k]) <= 1e-9 * std::abs(edges[k])))
      text.Fault("this should be the bin that begins with " + DoubleText(edges[k]));
  const double count = numbers.back();
  if (!(count >= 0 && count <= 1e15 && count == std::floor(count))) text.Fault("this is not a count");
  return static_cast<int64_t>(count);
}

/// Calls use(edges, pairs) for every bin in file order: width, from and to in milliseconds.
template <class Histogram, class Use>
void ForBins(Histogram& histogram, Use use) {
  const double width = static_cast<double>(histogram.Width) / 1e3;
  const int bins = static_cast<int>(histogram.Pairs.size());
  for (int k = -bins; k < bins; ++k)
    use(std::vector<double>{width, k * width, (k + 1) * width}, histogram.Pairs[k < 0 ? -k - 1 : k]);
}

}  // namespace

void WriteAutocorrelationFile(const AutocorrelationResult& result, const std::filesystem::path& path) {
  std::string body = "width (ms),from (ms),to (ms),pairs\r\n";
  for (const LagHistogram* histogram : {&result.Correlation.Near, &result.Correlation.Far})
    ForBins(*histogram, [&](const std::vector<double>& edges, int64_t pairs) {
      for (const double edge : edges) body += ResultNumber(edge) + ",";
      body += std::to_string(pairs) + "\r\n";
    });
  Save(path, kAutocorrelationKind, HeaderEntries(result.Used), result.Explanation, body);
}

AutocorrelationResult ReadAutocorrelationFile(const std::filesystem::path& path) {
  ResultText text(path, kAutocorrelationKind);
  AutocorrelationResult result;
  result.Used = UsageFrom(text.Header(), text.File());
  result.Explanation = HeaderValue(text.Header(), "Explanation").value_or("");
  text.Line();
  for (LagHistogram* histogram : {&result.Correlation.Near, &result.Correlation.Far})
    ForBins(*histogram, [&](const std::vector<double>& edges, int64_t& pairs) { pairs = CountOfBin(text, edges); });
  return result;
}

void WriteIntervalFile(const IntervalResult& result, const std::filesystem::path& path) {
  const LogIntervals& intervals = result.Intervals;
  std::vector<HeaderEntry> lines = HeaderEntries(result.Used);
  lines.push_back({"Intervals", std::to_string(intervals.Intervals)});
  lines.push_back({"IntervalsBelow2ms", std::to_string(intervals.Refractory)});
  lines.push_back({"IntervalsBelowFirstBin", std::to_string(intervals.Below)});
  lines.push_back({"IntervalsAboveLastBin", std::to_string(intervals.Above)});
  std::string body = "from (ms),to (ms),intervals\r\n";
  for (int k = 0; k < kLogBins; ++k)
    body += ResultNumber(LogEdge(k)) + "," + ResultNumber(LogEdge(k + 1)) + "," + std::to_string(intervals.Counts[k]) +
            "\r\n";
  Save(path, kIntervalKind, std::move(lines), result.Explanation, body);
}

IntervalResult ReadIntervalFile(const std::filesystem::path& path) {
  ResultText text(path, kIntervalKind);
  const auto count = [&](const char* key) { return HeaderCount(text.Header(), key, text.File()); };
  IntervalResult result;
  result.Used = UsageFrom(text.Header(), text.File());
  result.Explanation = HeaderValue(text.Header(), "Explanation").value_or("");
  result.Intervals.Intervals = count("Intervals");
  result.Intervals.Refractory = count("IntervalsBelow2ms");
  result.Intervals.Below = count("IntervalsBelowFirstBin");
  result.Intervals.Above = count("IntervalsAboveLastBin");
  text.Line();
  for (int k = 0; k < kLogBins; ++k) result.Intervals.Counts[k] = CountOfBin(text, {LogEdge(k), LogEdge(k + 1)});
  return result;
}

}  // namespace pallomir
