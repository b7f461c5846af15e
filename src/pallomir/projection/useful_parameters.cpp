#include "pallomir/projection/useful_parameters.h"

#include <algorithm>
#include <array>
#include <vector>

namespace pallomir {

namespace {

constexpr int kWires = 32;
constexpr std::array kFamilies = {kMPeak, kPreVal, kEnergy, kValley};
constexpr size_t kNoFamily = kFamilies.size();

/// The position of a parameter's family in kFamilies.
size_t FamilyOf(int parameter) {
  const auto holds = [parameter](int first) { return parameter >= first && parameter < first + kWires; };
  return static_cast<size_t>(std::find_if(kFamilies.begin(), kFamilies.end(), holds) - kFamilies.begin());
}

std::vector<ParameterPair> UsefulPairs(const Session& session) {
  std::vector<ParameterPair> pairs;
  for (const int family : kFamilies)
    for (int x = family; x < family + kWires; ++x)
      for (int y = x + 1; y < family + kWires && !session.AllZero[x]; ++y)
        if (!session.AllZero[y]) pairs.push_back({x, y});
  return pairs;
}

}  // namespace

int NextUseful(const Session& session, int parameter, int direction) {
  for (int p = parameter + direction; p >= 0 && p < kParameters; p += direction)
    if (!session.AllZero[p]) return p;
  return parameter;
}

std::optional<ParameterPair> NextPair(const Session& session, int direction) {
  const std::vector<ParameterPair> pairs = UsefulPairs(session);
  if (pairs.empty()) return {};
  const ParameterPair shown{session.XParameter, session.YParameter};
  if (const auto here = std::find(pairs.begin(), pairs.end(), shown); here != pairs.end()) {
    const auto count = static_cast<std::ptrdiff_t>(pairs.size());
    return pairs[static_cast<size_t>((here - pairs.begin() + direction + count) % count)];
  }
  const size_t family = FamilyOf(shown.X) == FamilyOf(shown.Y) ? FamilyOf(shown.X) % kNoFamily : 0;
  const auto first = std::find_if(pairs.begin(), pairs.end(),
                                  [family](const ParameterPair& pair) { return FamilyOf(pair.X) >= family; });
  return first == pairs.end() ? pairs.front() : *first;
}

}  // namespace pallomir
