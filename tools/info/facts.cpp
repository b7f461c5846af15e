#include "tools/info/facts.h"

namespace pallomir {

namespace {

constexpr size_t kLabelWidth = 12;

}  // namespace

void Facts::Add(std::string_view label, std::string_view text) {
  std::string cell(label);
  cell.resize(kLabelWidth, ' ');
  text_.append("  ").append(cell).append(Escaped(text)).append("\n");
}

void Facts::AddStamps(const StampSeries& stamps, std::string_view units) {
  if (stamps.Count == 0) return;
  const uint64_t span = stamps.Highest - stamps.Lowest;
  Add("time", std::to_string(stamps.Lowest) + " to " + std::to_string(stamps.Highest) + " microseconds (" +
                  DurationText(span) + ")");
  if (stamps.Count > 1 && span > 0)
    Add("rate", RoundedText(static_cast<double>(stamps.Count - 1) / (static_cast<double>(span) * 1e-6), 2) + " " +
                    std::string(units) + " per second");
  if (stamps.Disordered > 0)
    Odd(std::string(units) + " earlier than the previous one: " + CountText(stamps.Disordered) +
        ", the first is number " + std::to_string(stamps.FirstDisordered));
}

}  // namespace pallomir
