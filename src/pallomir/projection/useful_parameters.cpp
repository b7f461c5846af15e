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

/// The wires of a family that were recorded; one of MPeak holds record numbers instead.
std::vector<int> WiresInUse(const Session& session, int family) {
  std::vector<int> wires;
  for (int p = family; p < family + kWires; ++p)
    if (!session.AllZero[p] && p != kRecordSlot) wires.push_back(p);
  return wires;
}

std::vector<ParameterPair> UsefulPairs(const Session& session) {
  std::vector<ParameterPair> pairs;
  for (const int family : kFamilies) {
    const std::vector<int> wires = WiresInUse(session, family);
    for (size_t a = 0; a < wires.size(); ++a)
      for (size_t b = a + 1; b < wires.size(); ++b) pairs.push_back({wires[a], wires[b]});
  }
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
